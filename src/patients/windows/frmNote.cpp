#include "patients/windows/frmNote.h"

#include "core/windows/FixedTextEdit.h"
#include "patients/RecordHeaderFile.h"
#include "platform/qt/ButtonRow.h"
#include "platform/qt/Controls.h"
#include "platform/qt/Style.h"

#include <QAction>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

namespace ecg {
namespace {

enum Column { NumberColumn, TimeColumn, TextColumn, ColumnCount };

constexpr int rowHeight = 26;     // pixels, of the list and of the box in it
constexpr int rowsOnView = 14;    // at the least
constexpr int numberWidth = 64;   // pixels
constexpr int timeWidth = 160;    // pixels
constexpr int textWidth = 224;    // pixels: 22 bytes
constexpr int buttonWidth = 104;  // pixels

// The help lines are broken where their blanks are when a line is as wide as this, in pixels.
constexpr std::array<int, 2> helpWidths{152, 154};  // English, Chinese

// In the order in which they are shown; each by its index in `Label2`.
struct HelpLine {
    int Index;
    Twin Text;
};

constexpr std::array<HelpLine, 5> helpLines{{
    {2,
     {"1、本窗口自动屏蔽不能操     作的按键和菜单；", "1.The Key which can't      be Control will be       Cancel;"}},
    {0,
     {"2、选择需要修改事件所在     的行，用鼠标右键菜单     输入或修改内容；",
      "2.Select Event Line ,      Input or Modify the      Content using            RightButton;"}},
    {1,
     {"3、按【退出】键后自动填     写当前时间，同时退出     本窗口；",
      "3.Press[Exit] Key ,        System Give Time ,       then Exit Current        Window;"}},
    {3,
     {"4、采样过程中，每次只能     输入一次事件，多次的     输入均被定位到同一位     置；",
      "4.In Analisys Window,      using [To Event],        Locate It Soon;"}},
    {4, {"5、在数据分析过程中，使     用【到事件】可以迅速     显示该事件发生时的波     形数据；", ""}},
}};

constexpr std::array<Twin, ColumnCount> headers{
    {{"序号", "Number"}, {"时间", "Event Time"}, {"事件内容", "Event Content"}}};

constexpr Twin notStored{"事件没有保存：无法写入记录文件。请检查磁盘空间和文件权限，然后再次保存；"
                         "也可以丢弃修改的内容。",
                         "The events were not saved: the record file cannot be written. Check the disk space and the "
                         "permissions of the file and save again, or discard the changes."};

}  // namespace

frmNote::frmNote(SharedState& state, FileSystem& files, MessageBox& messages, QWidget* parent)
    : QDialog(parent),
      state_(state),
      files_(files),
      messages_(messages),
      editor_(state.CurrentHeader),
      NoteTab_(Named(new QTableWidget(EventSlotCount, ColumnCount, this), "NoteTab")),
      NoteCntl_(Named(new QMenu(this), "NoteCntl")),
      Picture5_(Named(new QFrame(this), "Picture5"))
{
    setObjectName("frmNote");
    setWindowTitle(Twin{"事件输入/修改窗口", "Event Input/Modify Window"}.In(state_.SysInfo));
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(style::Margins);
    grid->setSpacing(2 * style::GridStep);
    MakeList();
    MakeTextBox();
    MakeMenu();
    MakePrompt();
    auto* groups = new QHBoxLayout;
    groups->setSpacing(2 * style::GridStep);
    groups->addWidget(ListGroup(), 1);
    groups->addWidget(HelpGroup());
    grid->addLayout(groups, 0, 0);
    grid->addWidget(Picture5_, 0, 0, Qt::AlignCenter);
    grid->addLayout(ButtonRow(), 1, 0);
    Picture5_->raise();
    Picture5_->hide();
    NoteTab_->setCurrentCell(0, TextColumn);
    NoteTab_->setFocus();
}

void frmNote::MakeList()
{
    QStringList titles;
    for (const Twin& header : headers)
        titles << header.In(state_.SysInfo);
    NoteTab_->setHorizontalHeaderLabels(titles);
    NoteTab_->setAccessibleName(Twin{"事件列表", "Event List"}.In(state_.SysInfo));
    NoteTab_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    NoteTab_->setSelectionBehavior(QAbstractItemView::SelectRows);
    NoteTab_->setSelectionMode(QAbstractItemView::SingleSelection);
    NoteTab_->setTabKeyNavigation(false);
    NoteTab_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    NoteTab_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    NoteTab_->verticalHeader()->hide();
    NoteTab_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    NoteTab_->verticalHeader()->setDefaultSectionSize(rowHeight);
    QHeaderView* header = NoteTab_->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(TextColumn, QHeaderView::Stretch);
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    header->setFixedHeight(rowHeight);
    NoteTab_->setColumnWidth(NumberColumn, numberWidth);
    NoteTab_->setColumnWidth(TimeColumn, timeWidth);
    const int frame = 2 * NoteTab_->frameWidth();
    NoteTab_->setMinimumSize(numberWidth + timeWidth + textWidth + NoteTab_->verticalScrollBar()->sizeHint().width() +
                                 frame,
                             (rowsOnView + 1) * rowHeight + frame);
    for (int row = 1; row <= EventSlotCount; ++row) {
        for (const Column column : {NumberColumn, TimeColumn, TextColumn})
            NoteTab_->setItem(row - 1, column, new QTableWidgetItem);
        NoteTab_->item(row - 1, NumberColumn)->setTextAlignment(Qt::AlignCenter);
        ShowRow(row);
    }
    connect(NoteTab_, &QTableWidget::cellDoubleClicked, this, [this] { EditNoteMenu_->trigger(); });
}

void frmNote::MakeTextBox()
{
    const std::size_t width = state_.CurrentHeader.EventText.front().Bytes().size();
    Text3_ = Named(new FixedTextEdit(width, NoteTab_->viewport()), "Text3");
    Text3_->setAccessibleName(headers[TextColumn].In(state_.SysInfo));
    Text3_->hide();
    Text3_->installEventFilter(this);
    connect(Text3_, &QLineEdit::editingFinished, this, [this] { CommitText(); });
    // The box stands where its cell was: when that moves, or another row becomes the current one, the text is taken.
    connect(NoteTab_, &QTableWidget::currentCellChanged, this, [this] { CommitText(); });
    connect(NoteTab_->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { CommitText(); });
    connect(NoteTab_->horizontalHeader(), &QHeaderView::sectionResized, this, [this] { CommitText(); });
}

void frmNote::MakeMenu()
{
    AddNoteMenu_ = Named(NoteCntl_->addAction(Twin{"添加事件", "Add Event"}.In(state_.SysInfo)), "AddNoteMenu");
    EditNoteMenu_ = Named(NoteCntl_->addAction(Twin{"修改事件", "Modify Event"}.In(state_.SysInfo)), "EditNoteMenu");
    AddNoteMenu_->setShortcut(Qt::Key_Insert);
    EditNoteMenu_->setShortcuts({Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter});
    EditNoteMenu_->setEnabled(!Sampling());
    for (QAction* action : {AddNoteMenu_, EditNoteMenu_}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        NoteTab_->addAction(action);
    }
    connect(AddNoteMenu_, &QAction::triggered, this, [this] { AddNote(); });
    connect(EditNoteMenu_, &QAction::triggered, this, [this] { EditNote(); });
    NoteTab_->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(NoteTab_, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& place) { NoteCntl_->popup(NoteTab_->viewport()->mapToGlobal(place)); });
}

QGroupBox* frmNote::ListGroup()
{
    auto* group = Named(new QGroupBox(Twin{"事件列表", "Event List"}.In(state_.SysInfo), this), "Frame2");
    auto* column = new QVBoxLayout(group);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(NoteTab_);
    return group;
}

QGroupBox* frmNote::HelpGroup()
{
    auto* group = Named(new QGroupBox(Twin{"帮助", "Help"}.In(state_.SysInfo), this), "Frame1");
    auto* column = new QVBoxLayout(group);
    column->setSpacing(2 * style::GridStep);
    for (const HelpLine& line : helpLines) {
        auto* label = Named(new QLabel(line.Text.In(state_.SysInfo), group), "Label2", line.Index);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setFixedWidth(helpWidths[state_.Chinese() ? 1 : 0]);
        label->setHidden(label->text().isEmpty());
        column->addWidget(label);
    }
    column->addStretch();
    return group;
}

QHBoxLayout* frmNote::ButtonRow()
{
    auto* row = MakeButtonRow(this, "Command1",
                              {Twin{"到事件", "To Event"}.In(state_.SysInfo), Twin{"退出", "Exit"}.In(state_.SysInfo)},
                              Command1_);
    Command1_[0]->setEnabled(!Sampling());
    Command1_[1]->setDefault(true);
    connect(Command1_[0], &QPushButton::clicked, this, [this] { ToEvent(); });
    connect(Command1_[1], &QPushButton::clicked, this, [this] { Exit(); });
    return row;
}

void frmNote::MakePrompt()
{
    constexpr std::array<Twin, 3> words{{{"有关系统信息已经修改！", "Some Information be Modify!"},
                                         {"忽略修改的内容吗？", "Cancel modify?"},
                                         {"确认忽略", "Cancel Modify"}}};
    Picture5_->setFrameShape(QFrame::Box);
    Picture5_->setAutoFillBackground(true);
    Picture5_->setBackgroundRole(QPalette::Base);
    auto* column = new QVBoxLayout(Picture5_);
    column->setContentsMargins(3 * style::GridStep, 2 * style::GridStep, 3 * style::GridStep, 2 * style::GridStep);
    column->setSpacing(style::GridStep);
    for (const std::size_t i : {2U, 0U, 1U}) {
        Label12_[i] = Named(new QLabel(words[i].In(state_.SysInfo), Picture5_), "Label12", i);
        column->addWidget(Label12_[i]);
    }
    style::SetTextSize(*Label12_[2], style::HeadingPixels, true);
    column->addSpacing(style::GridStep);
    column->addLayout(PromptButtons());
}

QHBoxLayout* frmNote::PromptButtons()
{
    constexpr std::array<Twin, 3> captions{{{"保存", "Save"}, {"丢弃", "Cancel"}, {"返回", "Back"}}};
    auto* row = new QHBoxLayout;
    row->setSpacing(style::GridStep);
    for (std::size_t i = 0; i < Command2_.size(); ++i) {
        Command2_[i] = Named(new QPushButton(captions[i].In(state_.SysInfo), Picture5_), "Command2", i);
        Command2_[i]->setMinimumWidth(buttonWidth);
        connect(Command2_[i], &QPushButton::clicked, this, [this] { LeavePrompt(); });
        row->addWidget(Command2_[i]);
    }
    connect(Command2_[0], &QPushButton::clicked, this, [this] { Save(); });
    connect(Command2_[1], &QPushButton::clicked, this, [this] { done(Rejected); });
    return row;
}

bool frmNote::Sampling() const
{
    return state_.EventMode == EventsOfSampling;
}

int frmNote::CurrentRow() const
{
    return NoteTab_->currentRow() + 1;
}

void frmNote::ShowRow(int row)
{
    NoteTab_->item(row - 1, NumberColumn)->setText(QString::number(row));
    NoteTab_->item(row - 1, TimeColumn)->setText(ToQt(editor_.Time(row)));
    NoteTab_->item(row - 1, TextColumn)->setText(ToQt(editor_.Text(row)));
}

void frmNote::AddNote()
{
    const auto row = editor_.FreeRow();
    if (!row)
        return;
    NoteTab_->setCurrentCell(*row - 1, TextColumn);
    EditNote();
}

void frmNote::EditNote()
{
    CommitText();
    const QTableWidgetItem* cell = NoteTab_->item(NoteTab_->currentRow(), TextColumn);
    if (cell == nullptr)
        return;
    NoteTab_->scrollToItem(cell);
    editedRow_ = CurrentRow();
    Text3_->setText(cell->text());
    Text3_->setGeometry(NoteTab_->visualItemRect(cell));
    Text3_->show();
    Text3_->setFocus();
    Text3_->selectAll();
}

void frmNote::CommitText()
{
    if (Text3_->isHidden())
        return;
    const bool typing = focusWidget() == Text3_;
    Text3_->hide();
    editor_.SetText(editedRow_, Text3_->text().toStdString());
    ShowRow(editedRow_);
    if (typing)
        NoteTab_->setFocus();
}

// Enter and Escape end the typing and not the window.
bool frmNote::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != Text3_ || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape)
        Text3_->setText(ToQt(editor_.Text(editedRow_)));
    else if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return false;
    CommitText();
    return true;
}

void frmNote::Exit()
{
    CommitText();
    if (Sampling())
        Finish();
    else if (editor_.Dirty())
        AskToSave(false);
    else
        done(Accepted);
}

void frmNote::Finish()
{
    CommitText();
    NoteCntl_->close();
    editor_.StoreInto(state_.CurrentHeader, state_.BlockStart);
    done(Accepted);
}

void frmNote::reject()
{
    if (Picture5_->isHidden())
        Exit();
    else
        LeavePrompt();
}

void frmNote::ToEvent()
{
    CommitText();
    if (editor_.Dirty()) {
        AskToSave(true);
        return;
    }
    JumpTo(editor_);
    done(Accepted);
}

void frmNote::JumpTo(const EventEditor& events)
{
    if (const auto position = events.Position(CurrentRow()))
        state_.BlockStart = *position;
}

void frmNote::AskToSave(bool thenJump)
{
    jumpRequested_ = thenJump;
    NoteTab_->setEnabled(false);
    for (QPushButton* button : Command1_)
        button->setEnabled(false);
    Picture5_->show();
    Command2_[0]->setDefault(true);
    Command2_[0]->setFocus();
}

void frmNote::LeavePrompt()
{
    Picture5_->hide();
    NoteTab_->setEnabled(true);
    for (QPushButton* button : Command1_)
        button->setEnabled(true);
    Command1_[1]->setDefault(true);
    NoteTab_->setFocus();
}

// The shared header changes only with the file, so that discarding after a refusal leaves both as they were.
void frmNote::Save()
{
    RecordHeader header = state_.CurrentHeader;
    editor_.StoreInto(header, state_.BlockStart);
    if (!WriteRecordHeader(files_, state_.Folders.File(state_.RecordPath), header)) {
        messages_.Tell(notStored.In(state_.SysInfo), windowTitle().toStdString());
        return;
    }
    state_.CurrentHeader = header;
    if (jumpRequested_)
        JumpTo(EventEditor(header));
    done(Accepted);
}

}  // namespace ecg
