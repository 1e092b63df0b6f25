#include "core/windows/FixedTextEdit.h"

#include "core/formats/CodePage.h"

namespace ecg {

FixedTextEdit::FixedTextEdit(std::size_t width, QWidget* parent) : QLineEdit(parent), width_(width)
{
    setMaxLength(static_cast<int>(width));
    connect(this, &QLineEdit::textEdited, this, [this] { RemoveWhatDoesNotFit(); });
}

// Takes away from what was just typed, in front of the cursor, and never from the text that stood behind it.
void FixedTextEdit::RemoveWhatDoesNotFit()
{
    QString typed = text();
    qsizetype cursor = cursorPosition();
    while (GbkFromUtf8(typed.toStdString()).size() > width_) {
        if (cursor == 0)
            cursor = typed.size();
        const bool isPair = cursor > 1 && typed.at(cursor - 1).isLowSurrogate();
        const qsizetype units = isPair ? 2 : 1;
        cursor -= units;
        typed.remove(cursor, units);
    }
    if (typed == text())
        return;
    setText(typed);
    setCursorPosition(static_cast<int>(cursor));
}

}  // namespace ecg
