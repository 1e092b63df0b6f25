// A line of text that shows as much as its width allows, ending in "…", and all of it as a tool tip.
#pragma once

#include <QLabel>

namespace ecg {

class ElidingLabel final : public QLabel {
public:
    explicit ElidingLabel(QWidget* parent);

    void ShowText(const QString& text);

protected:
    QSize minimumSizeHint() const override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace ecg
