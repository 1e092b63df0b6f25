// A line for typing a text that is stored in a field of fixed width: it takes no more than fits.
#pragma once

#include <QLineEdit>

#include <cstddef>

namespace ecg {

class FixedTextEdit final : public QLineEdit {
public:
    // `width` is in bytes of the stored code page, in which a Chinese character takes two.
    FixedTextEdit(std::size_t width, QWidget* parent);

private:
    void RemoveWhatDoesNotFit();

    std::size_t width_;
};

}  // namespace ecg
