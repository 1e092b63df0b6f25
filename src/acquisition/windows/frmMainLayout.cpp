// How the main window is laid out: its controls, their places and looks. What they do stands in frmMain.cpp.
#include "acquisition/windows/TraceArea.h"
#include "acquisition/windows/frmMain.h"
#include "platform/qt/Style.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace ecg {
namespace {

constexpr int topHeight = 72;
constexpr int panelWidth = 192;
constexpr int tickerWidth = 100;  // the last 100 pixels of the design width
constexpr int electrodeWidth = 26;
constexpr int lampSize = 11;
constexpr int lampX = 62;
constexpr int lampY = 3;
constexpr int noticeHeight = 48;

QString Indexed(const char* name, int index)
{
    return QString("%1_%2").arg(name).arg(index);
}

QFrame* VerticalRule(QWidget* parent)
{
    auto* rule = new QFrame(parent);
    rule->setFrameShape(QFrame::VLine);
    rule->setStyleSheet("color: #9ea876;");
    return rule;
}

}  // namespace

QLabel* frmMain::MakeLabel(const QString& name, int pixels, bool bold)
{
    auto* label = new QLabel(this);
    label->setObjectName(name);
    style::SetTextSize(*label, pixels, bold);
    return label;
}

PictureBox* frmMain::MakeIcon(int index, const char* picture)
{
    auto* icon = new PictureBox(pictures_, picture, this);
    icon->setObjectName(Indexed("Image3", index));
    icon->setFixedSize(24, 24);
    image3_[index] = icon;
    return icon;
}

QWidget* frmMain::MakeNotice(const char* name, const char* picture, QLabel*& caption)
{
    auto* notice = new PictureBox(pictures_, picture, this);
    notice->setObjectName(name);
    notice->setFixedSize(panelWidth - 2 * style::GridStep, noticeHeight);
    caption = new QLabel(notice);
    caption->setObjectName(QString(name) + "_Caption");
    caption->setGeometry(52, 0, notice->width() - 54, noticeHeight);
    style::SetTextSize(*caption, style::SmallPixels);
    return notice;
}

void frmMain::MakeKey(const KeyEntry& entry)
{
    const QString released = QString::number(entry.ReleasedPicture);
    auto* keyPic = new PictureKey(
        pictures_, {released, QString::number(entry.PressedPicture), released + "h", released + "d"}, this);
    keyPic->setObjectName(Indexed("KeyPic", entry.Key));
    keyPic->setFixedSize(entry.Width, entry.Height);
    style::SetHandCursor(*keyPic);
    keyPic_[entry.Key] = keyPic;
    if (entry.Caption != NoCaption)
        keyPic->Caption()->setObjectName(Indexed("Label2", entry.Caption));
    style::SetTextSize(*keyPic->Caption(), style::TextPixels);
    for (const Lamp lamp : {Lamp::Setup, Lamp::DataBase, Lamp::Freeze, Lamp::Baseline, Lamp::Event}) {
        if (static_cast<int>(lamp) != entry.Caption)
            continue;
        auto* image = new PictureBox(pictures_, "300", keyPic);
        image->setObjectName(Indexed("Image1", entry.Caption));
        image->setGeometry(lampX, lampY, lampSize, lampSize);
        image->setAttribute(Qt::WA_TransparentForMouseEvents);
        image1_[entry.Caption] = image;
    }
}

void frmMain::LayOut()
{
    resize(1024, 768);
    auto* window = new QVBoxLayout(this);
    window->setContentsMargins(0, 0, 0, 0);
    window->setSpacing(0);
    window->addWidget(MakeTopBar());
    auto* body = new QHBoxLayout;
    body->setContentsMargins(style::GridStep, 0, 0, style::GridStep);
    body->setSpacing(0);
    body->addWidget(picture4_, 1);
    body->addWidget(MakePanel());
    window->addLayout(body, 1);
    SetTabOrder();
}

QWidget* frmMain::MakeTopBar()
{
    auto* bar = new QWidget(this);
    bar->setFixedHeight(topHeight);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(2 * style::GridStep, style::GridStep, style::GridStep, style::GridStep);
    row->setSpacing(style::GridStep);

    // Who and how long.
    auto* who = new QGridLayout;
    who->setHorizontalSpacing(2 * style::GridStep);
    who->setVerticalSpacing(2);
    label4_[3] = MakeLabel("Label4_3", style::LargePixels, true);
    label4_[3]->setMinimumWidth(176);
    label4_[4] = MakeLabel("Label4_4", style::HeadingPixels);
    label3_[3] = MakeLabel("Label3_3", style::HeadingPixels);
    label3_[6] = MakeLabel("Label3_6", style::HeadingPixels);
    label3_[3]->setMinimumWidth(152);
    who->addWidget(label4_[3], 0, 0);
    who->addWidget(label4_[4], 1, 0);
    who->addWidget(label3_[3], 0, 1);
    who->addWidget(label3_[6], 1, 1);
    row->addLayout(who);
    row->addWidget(VerticalRule(bar));

    // What the box reports.
    auto* box = new QVBoxLayout;
    box->setSpacing(4);
    auto* electrodes = new QHBoxLayout;
    electrodes->setSpacing(1);
    electrodes->addWidget(MakeIcon(4, "electrode"));
    image3_[4]->installEventFilter(this);
    electrodes->addSpacing(4);
    for (int number = 9; number <= 18; ++number) {
        label3_[number] = MakeLabel(Indexed("Label3", number), style::SmallPixels);
        label3_[number]->setFixedSize(electrodeWidth, 20);
        label3_[number]->setAlignment(Qt::AlignCenter);
        electrodes->addWidget(label3_[number]);
    }
    electrodes->addStretch();
    box->addLayout(electrodes);
    auto* filters = new QHBoxLayout;
    filters->setSpacing(4);
    for (const wire::Filter filter : {wire::Filter::Ac, wire::Filter::Muscle, wire::Filter::Baseline}) {
        const int index = static_cast<int>(filter);
        filterPrefix_[index] = MakeLabel(Indexed("FilterPrefix", index), style::SmallPixels);
        label5_[index] = MakeLabel(Indexed("Label5", index), style::SmallPixels, true);
        label5_[index]->setText("--");
        label5_[index]->setMinimumWidth(40);
        filters->addWidget(filterPrefix_[index]);
        filters->addWidget(label5_[index]);
    }
    filters->addStretch();
    box->addLayout(filters);
    row->addLayout(box);
    row->addStretch(1);
    row->addWidget(VerticalRule(bar));

    // The time.
    auto* clock = new QGridLayout;
    clock->setHorizontalSpacing(style::GridStep);
    clock->setVerticalSpacing(2);
    label4_[0] = MakeLabel("Label4_0", style::SmallPixels);
    label4_[1] = MakeLabel("Label4_1", style::SmallPixels);
    label4_[2] = MakeLabel("Label4_2", style::LargePixels, true);
    label4_[2]->setMinimumWidth(80);
    clock->addWidget(MakeIcon(0, "clock"), 0, 0);
    clock->addWidget(label4_[2], 0, 1, 1, 2);
    clock->addWidget(label4_[0], 1, 0, 1, 2);
    clock->addWidget(label4_[1], 1, 2);
    row->addLayout(clock);
    row->addWidget(VerticalRule(bar));

    for (const int number : {key::Knowledge, key::Help, key::Exit})
        row->addWidget(keyPic_[number]);
    return bar;
}

QWidget* frmMain::MakeHeart()
{
    auto* heart = new QWidget(this);
    auto* grid = new QGridLayout(heart);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(style::GridStep / 2);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(1, 1);
    picture1_->setObjectName("Picture1");
    picture1_->setAttribute(Qt::WA_StyledBackground);
    picture1_->setFixedSize(36, 32);
    auto* light = new QVBoxLayout(picture1_);
    light->setContentsMargins(0, 0, 0, 0);
    light->addWidget(MakeIcon(3, "heart"), 0, Qt::AlignCenter);
    label4_[5] = MakeLabel("Label4_5", style::TextPixels, true);
    label4_[5]->setAlignment(Qt::AlignCenter);
    label3_[8] = MakeLabel("Label3_8", style::RatePixels, true);
    label3_[8]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid->addWidget(picture1_, 0, 0);
    grid->addWidget(label4_[5], 1, 0);
    grid->addWidget(label3_[8], 0, 1, 2, 1);
    return heart;
}

// A strip that the ticker runs through; it ends with the window, at x = 1024 of the design size.
QWidget* frmMain::MakeTicker()
{
    auto* strip = new QWidget(this);
    strip->setFixedSize(tickerWidth, 20);
    label1_->setParent(strip);
    label1_->move(tickerWidth, 0);
    return strip;
}

QWidget* frmMain::MakePanel()
{
    auto* panel = new QWidget(this);
    panel->setFixedWidth(panelWidth);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(style::GridStep, 0, style::GridStep, 0);
    column->setSpacing(style::GridStep / 2);
    column->addWidget(MakeHeart());
    column->addWidget(image2_);
    auto* ticker = new QHBoxLayout;
    ticker->setContentsMargins(0, 0, -style::GridStep, 0);
    ticker->addStretch();
    ticker->addWidget(MakeTicker());
    column->addLayout(ticker);
    AddKeys(*column, 0, {key::Go, key::Back});
    AddKeys(*column, 1, {key::Freeze, key::BaseLine, key::Event});
    AddKeys(*column, 20, {key::Setup, key::DataBase});
    AddSelectors(*column);
    column->addStretch(1);
    picture5_ = MakeNotice("Picture5", "recover", recoveryText_);
    picture6_ = MakeNotice("Picture6", "nobox", noDeviceText_);
    column->addWidget(picture5_);
    column->addWidget(picture6_);
    return panel;
}

void frmMain::AddKeys(QBoxLayout& panel, int heading, std::initializer_list<int> keys)
{
    label3_[heading] = MakeLabel(Indexed("Label3", heading), style::TextPixels, true);
    panel.addWidget(label3_[heading]);
    auto* grid = new QGridLayout;
    grid->setSpacing(style::GridStep);
    int place = 0;
    for (const int number : keys) {
        grid->addWidget(keyPic_[number], place / 2, place % 2);
        ++place;
    }
    panel.addLayout(grid);
}

void frmMain::AddSelectors(QBoxLayout& panel)
{
    label3_[2] = MakeLabel("Label3_2", style::TextPixels, true);
    panel.addWidget(label3_[2]);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(style::GridStep / 2);
    grid->setVerticalSpacing(style::GridStep / 2);
    grid->setColumnStretch(1, 1);
    for (int i = 0; i < static_cast<int>(combo1_.size()); ++i) {
        heading_[i] = MakeLabel(Indexed("Heading", i), style::SmallPixels);
        auto* combo = new QComboBox(this);
        combo->setObjectName(Indexed("Combo1", i));
        style::SetTextSize(*combo, style::SmallPixels);
        combo->setFixedHeight(26);
        connect(combo, &QComboBox::activated, this,
                [this, i](int index) { Select(static_cast<std::size_t>(i), index); });
        combo1_[static_cast<std::size_t>(i)] = combo;
        grid->addWidget(heading_[i], i, 0);
        grid->addWidget(combo, i, 1);
    }
    panel.addLayout(grid);
}

void frmMain::SetTabOrder()
{
    QWidget* last = keyPic_[key::Go];
    const auto follow = [&last](QWidget* next) {
        QWidget::setTabOrder(last, next);
        last = next;
    };
    for (const int number : {key::Back, key::Freeze, key::BaseLine, key::Event, key::Setup, key::DataBase})
        follow(keyPic_[number]);
    for (QComboBox* combo : combo1_)
        follow(combo);
    for (const int number : {key::Knowledge, key::Help, key::Exit})
        follow(keyPic_[number]);
}

}  // namespace ecg
