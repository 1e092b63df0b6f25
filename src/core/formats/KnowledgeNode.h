// One item of a knowledge tree (`.bok`): 2929 bytes. The tree is implicit in the order of the records and their levels.
#pragma once

#include "core/formats/FixedText.h"
#include "core/formats/Layout.h"

namespace ecg {

struct KnowledgeNode {
    Byte Level = 0;  // depth, 1 to 7; 0 ends the tree
    FixedText<40> Title;
    FixedText<2888> Body;
};

static_assert(IsFixedRecord<KnowledgeNode, 2929>);
static_assert(offsetof(KnowledgeNode, Level) == 0);
static_assert(offsetof(KnowledgeNode, Title) == 1);
static_assert(offsetof(KnowledgeNode, Body) == 41);

}  // namespace ecg
