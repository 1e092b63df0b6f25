// Small things that every window needs: texts from the logic, and controls under their own names.
#pragma once

#include <QString>
#include <QWidget>

#include <string_view>

namespace ecg {

// From UTF-8.
inline QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Gives a control of a window its name.
template <class Control>
Control* Named(Control* control, const char* name)
{
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

// Gives a control of an array its name and running index: "Text1_3".
template <class Control, class Index>
Control* Named(Control* control, const char* name, Index index)
{
    control->setObjectName(QString("%1_%2").arg(QString::fromLatin1(name)).arg(index));
    return control;
}

}  // namespace ecg
