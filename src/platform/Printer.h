// A printer: a surface in millimetres that also starts pages.
#pragma once

#include "platform/Surface.h"

#include <string>

namespace ecg {

class Printer {
public:
    virtual ~Printer() = default;

    virtual std::string Name() const = 0;  // UTF-8; empty when there is no printer
    virtual bool PrintsColour() const = 0;

    // Starts a document. Returns the surface of its first page, in millimetres of the printable page, or null when
    // the printer cannot be used. The surface stays valid until `EndDocument`.
    virtual Surface* StartDocument(std::string_view title, bool portrait, bool fine) = 0;

    virtual bool NewPage() = 0;

    // Sends the document. False when the printer refused it.
    virtual bool EndDocument() = 0;
};

}  // namespace ecg
