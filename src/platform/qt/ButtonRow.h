// The buttons at the lower right of a dialog.
#pragma once

#include <QString>

#include <initializer_list>
#include <span>

class QHBoxLayout;
class QPushButton;
class QWidget;

namespace ecg {

// Makes one button for each caption, named `name`_0, `name`_1 and so on, and puts them into `buttons`, which has as
// many places.
QHBoxLayout* MakeButtonRow(QWidget* parent, const char* name, std::initializer_list<QString> captions,
                           std::span<QPushButton*> buttons);

}  // namespace ecg
