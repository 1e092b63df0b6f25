// The one look of all windows: a small palette, the fonts, and the style sheet.
#pragma once

#include <QColor>
#include <QFont>
#include <QMargins>

class QApplication;
class QGridLayout;
class QWidget;

namespace ecg::style {

inline const QColor Panel(190, 199, 152);       // window background
inline const QColor PanelLight(214, 221, 184);  // raised parts, hovered
inline const QColor PanelDark(158, 168, 118);   // lines between groups
inline const QColor Field(246, 248, 238);       // what can be typed into
inline const QColor Ink(38, 46, 28);            // text
inline const QColor InkDim(84, 92, 62);         // text of disabled controls, 4.5 to 1 on the panel
inline const QColor Accent(24, 92, 96);         // focus, selection
inline const QColor Alarm(200, 30, 30);         // alarms, and nothing else

inline constexpr int GridStep = 8;  // pixels; all spacings are multiples
inline constexpr QMargins Margins(2 * GridStep, 2 * GridStep, 2 * GridStep, 2 * GridStep);  // inside a window or a tab

inline constexpr int TextPixels = 13;   // ordinary text
inline constexpr int SmallPixels = 12;  // the smallest: 9 points
inline constexpr int HeadingPixels = 15;
inline constexpr int LargePixels = 20;  // clock, names
inline constexpr int RatePixels = 30;   // what a doctor reads at a distance

// Sets fonts, palette and style sheet for the whole program. Chinese fonts are looked for by name, best first.
void Apply(QApplication& application);

// `widget`'s font at a size of the list above.
void SetTextSize(QWidget& widget, int pixels, bool bold = false);

// A grid for the controls of a group.
QGridLayout* GridIn(QWidget& group);

// The pointing hand over what can be clicked.
void SetHandCursor(QWidget& widget);

}  // namespace ecg::style
