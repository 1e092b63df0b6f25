// A widget that shows one named picture, and nothing when the name is empty.
#pragma once

#include "platform/qt/Pictures.h"

#include <QPixmap>
#include <QWidget>

namespace ecg {

class PictureBox : public QWidget {
public:
    PictureBox(const Pictures& pictures, QString name, QWidget* parent);

    void SetPicture(const QString& name);
    const QString& Picture() const { return name_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Pictures& pictures_;
    QString name_;
    QString drawnName_;  // what `drawn_` shows
    QPixmap drawn_;
};

}  // namespace ecg
