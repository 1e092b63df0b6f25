// The heart rate of a whole record, beat by beat, with a cursor that reads it, its time and the events near it.
//
// The record is the one in review: `AboutFile` reads it, `CurrentHeader` has its start and its events. The window
// leaves `BlockStart`, when "To Cursor" closes it.
//
// Controls:
//   Picture2, Picture3   the curve; beside it the captions of its axes, with the highest and lowest rate in view
//   Image2               the arrow of the cursor, which can be dragged
//   HScroll1             the beat that the view begins with (Page Up, Page Down, Home, End)
//   Command2             0 and 1 move the cursor one column (Left, Right)
//   Frame1               the readouts; Label1 their captions, Label2 their values, both in the order of `Readout`
//   Frame2, Image1       the event near the cursor; a flag that shows that there is one
//   Label3               0 says that the beat at the cursor is not drawn, 1 that the record goes on behind the curve
//   Command1             0 leaves (Escape), 1 goes to the cursor (Enter)
//   Timer1               closes the window of a record without beats
#pragma once

#include "core/SharedState.h"
#include "platform/MessageBox.h"
#include "platform/qt/Pictures.h"
#include "rate/RateTrend.h"

#include <QDialog>
#include <QTimer>

#include <array>

class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollBar;

namespace ecg {

class PictureBox;
class SurfaceBox;

class frmRate final : public QDialog {
public:
    enum Readout {
        HeartBeats,
        BeginTime,
        EndTime,
        MaxRate,
        MinRate,
        CursorRate,
        CursorTime,
        EventTime,
        EventDetail,
        ReadoutCount
    };

    // Scans the record; one with fewer than two beats is told of, and the window closes as soon as it shows.
    frmRate(SharedState& state, AboutFile& file, MessageBox& messages, const Pictures& pictures,
            QWidget* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* Chart(const Pictures& pictures);
    QGroupBox* Parameters();
    QGroupBox* Events(const Pictures& pictures);
    QHBoxLayout* ButtonRow();
    void MakeScrollBar();
    void MakeStepKeys();
    void MakeKeys();
    void AddReadout(QGridLayout& grid, Readout readout, int row, int column);
    QLabel* MakeNote(int index);

    void ShowRecord();
    void ShowView();
    void ShowCursor();
    void ShowEvent(std::optional<std::int32_t> slot);
    void Scroll(int value);
    void MoveCursor(int pixels);
    void ToCursor();
    void TellOfNoBeats();

    SharedState& state_;
    MessageBox& messages_;
    RateTrend trend_;
    int dragFrom_ = 0;  // pixels from the left edge of the arrow, where it was pressed

    SurfaceBox* Picture2_ = nullptr;
    SurfaceBox* Picture3_ = nullptr;
    PictureBox* Image1_ = nullptr;
    PictureBox* Image2_ = nullptr;
    QScrollBar* HScroll1_ = nullptr;
    std::array<QLabel*, ReadoutCount> Label1_{};
    std::array<QLabel*, ReadoutCount> Label2_{};
    std::array<QLabel*, 2> Label3_{};
    std::array<QPushButton*, 2> Command1_{};
    std::array<QPushButton*, 2> Command2_{};
    QTimer Timer1_;
};

}  // namespace ecg
