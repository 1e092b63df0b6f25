// The departments: 64 numbered lines, each of which can be rewritten in place.
//
// A line is modified from the menu of the right button, by a double click, or with F2 or Enter.
#pragma once

#include "core/formats/SysInfo.h"

#include <QListWidget>

namespace ecg {

class DepartmentList final : public QListWidget {
public:
    DepartmentList(bool chinese, QWidget* parent);

    void ShowNames(const SysInfo& settings);
    void CollectNames(SysInfo& settings) const;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    const bool chinese_;
};

}  // namespace ecg
