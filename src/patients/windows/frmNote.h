// The events of a record: a list of 46 slots, in which a text is typed over its cell. During sampling events can only
// be added; in review they can be changed as well, and the wave shown where one lies.
//
// The header that is edited is the shared `CurrentHeader`; `EventMode` says who opened the window. A new event takes
// the position `BlockStart` has when the window is left, so that while sampling it marks the moment of the exit. In
// review the header of the record file is rewritten, when the user says so.
//
// Controls:
//   NoteTab        the list: number, time, text; its current row is the one that is edited or jumped to
//   NoteCntl       menu of the right button: AddNoteMenu (Insert), EditNoteMenu (F2, Enter, double click)
//   Text3          the text that is being typed: Enter or leaving it takes it, Escape gives it up
//   Command1       0 shows the wave of the current row, 1 leaves (Enter, Escape)
//   Picture5       asks what to do with changes: Label12 its words, Command2 0 save, 1 discard, 2 back (Escape)
//   Frame1, Frame2 help with its lines Label2, and the list
#pragma once

#include "core/SharedState.h"
#include "patients/EventEditor.h"
#include "platform/FileSystem.h"
#include "platform/MessageBox.h"

#include <QDialog>

#include <array>

class QAction;
class QFrame;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QMenu;
class QPushButton;
class QTableWidget;

namespace ecg {

class FixedTextEdit;

class frmNote final : public QDialog {
public:
    frmNote(SharedState& state, FileSystem& files, MessageBox& messages, QWidget* parent = nullptr);

    // Takes a text that is being typed, stores the events in the shared header, and closes. For the end of a sampling.
    void Finish();

    void reject() override;  // Escape and the window's own close button lose nothing

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGroupBox* HelpGroup();
    QGroupBox* ListGroup();
    QHBoxLayout* ButtonRow();
    void MakeList();
    void MakeTextBox();
    void MakeMenu();
    void MakePrompt();
    QHBoxLayout* PromptButtons();

    bool Sampling() const;
    int CurrentRow() const;  // of the editor
    void ShowRow(int row);
    void AddNote();
    void EditNote();
    void CommitText();
    void Exit();
    void ToEvent();
    void AskToSave(bool thenJump);
    void LeavePrompt();
    void Save();
    void JumpTo(const EventEditor& events);

    SharedState& state_;
    FileSystem& files_;
    MessageBox& messages_;
    EventEditor editor_;
    bool jumpRequested_ = false;
    int editedRow_ = 0;  // of the editor, while `Text3_` shows

    QTableWidget* NoteTab_;
    QMenu* NoteCntl_;
    QAction* AddNoteMenu_ = nullptr;
    QAction* EditNoteMenu_ = nullptr;
    FixedTextEdit* Text3_ = nullptr;
    std::array<QPushButton*, 2> Command1_{};
    QFrame* Picture5_;
    std::array<QLabel*, 3> Label12_{};
    std::array<QPushButton*, 3> Command2_{};
};

}  // namespace ecg
