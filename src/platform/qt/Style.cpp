#include "platform/qt/Style.h"

#include <QApplication>
#include <QGridLayout>
#include <QPalette>
#include <QStyleFactory>
#include <QWidget>

namespace ecg::style {
namespace {

constexpr const char* sheet = R"(
QToolTip { background: #f6f8ee; color: #262e1c; border: 1px solid #262e1c; padding: 4px; }
QPushButton {
    background: #d6ddb8; color: #262e1c; border: 1px solid #55603c; border-radius: 4px;
    padding: 5px 16px; min-height: 20px;
}
QPushButton:hover { background: #e4e9cf; }
QPushButton:focus { border: 2px solid #185c60; padding: 4px 15px; }
QPushButton:pressed { background: #9ea876; border: 2px solid #262e1c; padding: 5px 14px 3px 16px; }
QPushButton:disabled { background: #bec798; color: #545c3e; border: 1px dashed #7d8660; }
QPushButton:checked { background: #f6f8ee; border: 2px solid #262e1c; padding: 4px 15px; font-weight: bold; }
QPushButton[compact="true"] { padding: 3px 6px; min-height: 18px; }
QPushButton[compact="true"]:focus, QPushButton[compact="true"]:checked { padding: 2px 5px; }
QPushButton[compact="true"]:pressed { padding: 3px 4px 1px 6px; }
QLineEdit, QPlainTextEdit, QTextEdit, QListView {
    background: #f6f8ee; color: #262e1c; border: 1px solid #7d8660; border-radius: 3px; padding: 3px 5px;
    selection-background-color: #185c60; selection-color: white;
}
QLineEdit:focus, QPlainTextEdit:focus, QTextEdit:focus, QListView:focus { border: 2px solid #185c60; padding: 2px 4px; }
QLineEdit:disabled { background: #cdd4ad; color: #545c3e; border: 1px dashed #7d8660; }
QListView::item { padding: 2px; background: transparent; }
QListView::item:selected { background: #185c60; color: white; }
QCheckBox, QRadioButton { border-bottom: 2px solid transparent; padding: 2px 4px 0px 0px; }
QCheckBox:focus, QRadioButton:focus { background: #d6ddb8; border-bottom: 2px solid #185c60; }
QComboBox {
    background: #f6f8ee; color: #262e1c; border: 1px solid #7d8660; border-radius: 3px; padding: 3px 6px;
    min-height: 18px; combobox-popup: 0;
}
QComboBox:focus { border: 2px solid #185c60; padding: 2px 5px; }
QComboBox:disabled { background: #cdd4ad; color: #545c3e; border: 1px dashed #7d8660; }
QComboBox::drop-down { border: none; width: 24px; }
QComboBox::down-arrow {
    width: 0px; height: 0px; border-left: 5px solid #f6f8ee; border-right: 5px solid #f6f8ee;
    border-top: 6px solid #262e1c;
}
QSlider { min-height: 24px; }
QSlider::groove:horizontal { background: #f6f8ee; border: 1px solid #7d8660; border-radius: 3px; height: 4px; }
QSlider::sub-page:horizontal { background: #185c60; border: 1px solid #185c60; border-radius: 3px; }
QSlider::handle:horizontal {
    background: #d6ddb8; border: 1px solid #55603c; border-radius: 4px; width: 12px; margin: -8px 0;
}
QSlider::handle:horizontal:hover { background: #e4e9cf; }
QSlider::handle:horizontal:focus { border: 2px solid #185c60; }
QMenu { background: #f6f8ee; color: #262e1c; border: 1px solid #55603c; padding: 4px; }
QMenu::item { padding: 5px 24px; }
QMenu::item:selected { background: #185c60; color: white; }
QMenu::item:disabled { color: #8a9170; background: transparent; }
QGroupBox { border: 1px solid #7d8660; border-radius: 4px; margin-top: 10px; padding: 12px 8px 8px 8px; }
QGroupBox::title { subcontrol-origin: margin; left: 12px; padding: 0 4px; font-weight: bold; }
QTabWidget::pane { border: 1px solid #7d8660; border-radius: 4px; top: -1px; }
QTabBar::tab {
    background: #aeb788; color: #262e1c; border: 1px solid #7d8660; border-bottom: none; padding: 7px 20px;
    border-top-left-radius: 4px; border-top-right-radius: 4px; margin-right: 2px;
}
QTabBar::tab:selected { background: #bec798; font-weight: bold; margin-bottom: -1px; }
QTabBar::tab:hover:!selected { background: #d6ddb8; }
QTabBar::tab:focus { border: 2px solid #185c60; }
QTableView {
    background: #f6f8ee; alternate-background-color: #eaeedb; color: #262e1c; border: 2px solid #7d8660;
    gridline-color: #d6ddb8; selection-background-color: #185c60; selection-color: white;
}
QTableView:focus { border-color: #185c60; }
QPushButton[gridHeader="true"] {
    background: #aeb788; border: none; border-right: 1px solid #7d8660; border-radius: 0; padding: 2px; font-weight: bold;
}
QPushButton[gridHeader="true"]:hover { background: #d6ddb8; }
QPushButton[gridHeader="true"]:focus { border: 2px solid #185c60; padding: 0; }
QToolButton { border: 1px solid transparent; border-radius: 4px; padding: 4px 8px; color: #262e1c; }
QToolButton:hover:enabled { background: #d6ddb8; border-color: #55603c; }
QToolButton:pressed { background: #9ea876; }
QToolButton:focus { border: 2px solid #185c60; padding: 3px 7px; }
QToolButton:disabled { color: #545c3e; }
QProgressBar { background: #f6f8ee; border: 1px solid #7d8660; border-radius: 3px; text-align: center; height: 18px; }
QProgressBar::chunk { background: #aeb788; }
)";

QPalette ClinicalPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, Panel);
    palette.setColor(QPalette::WindowText, Ink);
    palette.setColor(QPalette::Base, Field);
    palette.setColor(QPalette::AlternateBase, PanelLight);
    palette.setColor(QPalette::Text, Ink);
    palette.setColor(QPalette::Button, PanelLight);
    palette.setColor(QPalette::ButtonText, Ink);
    palette.setColor(QPalette::Highlight, Accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, InkDim);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, InkDim);
    return palette;
}

}  // namespace

void Apply(QApplication& application)
{
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QApplication::setPalette(ClinicalPalette());
    QFont font;
    font.setFamilies({"Noto Sans CJK SC", "Source Han Sans SC", "WenQuanYi Micro Hei", "Noto Sans"});
    font.setPixelSize(TextPixels);
    QApplication::setFont(font);
    application.setStyleSheet(sheet);
}

void SetTextSize(QWidget& widget, int pixels, bool bold)
{
    QFont font = widget.font();
    font.setPixelSize(pixels);
    font.setBold(bold);
    widget.setFont(font);
}

QGridLayout* GridIn(QWidget& group)
{
    auto* grid = new QGridLayout(&group);
    grid->setHorizontalSpacing(2 * GridStep);
    grid->setVerticalSpacing(GridStep);
    return grid;
}

void SetHandCursor(QWidget& widget)
{
    widget.setCursor(Qt::PointingHandCursor);
}

}  // namespace ecg::style
