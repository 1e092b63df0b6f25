#include "app/ReviewDesk.h"

#include "core/Labels.h"
#include "platform/qt/BusyCursor.h"
#include "platform/qt/QtPrinter.h"
#include "review/report/PrintReport.h"
#include "review/windows/TraceView.h"
#include "review/windows/frmxECG.h"

#include <QSaveFile>

namespace ecg {
namespace {

constexpr Twin noPrinter{"没有可用的打印机，请安装打印机后再使用该键", "No available printer existing"};
constexpr Twin notPrinted{"报告没有打印完成。请检查打印机的电源、连接和纸张。",
                          "The report could not be printed. Check the printer's power, connection and paper."};
constexpr Twin exported{"图形和文本已经输出。", "The picture and the text were exported."};
constexpr Twin noFolder{
    "没有输出。请在程序文件夹的 FileDir.txt 第一行写上输出文件夹。",
    "Nothing was exported. The first line of FileDir.txt in the program's folder must name the folder "
    "to export to."};
constexpr Twin notExported{"没有全部输出。请检查输出文件夹、磁盘空间和权限。",
                           "Not everything was exported. Check the folder, the free space and the permissions."};
constexpr Twin posted{"记录已经放入信箱，等待传送。", "The record was posted and waits to be sent."};
constexpr Twin notPosted{"记录没有放入信箱：无法写入 Comm.dat。请检查磁盘空间和数据文件夹的权限。",
                         "The record was not posted: Comm.dat cannot be written. Check the free space and the "
                         "permissions of the data folder."};

class WindowExporter final : public ReportExporter {
public:
    WindowExporter(RecordReview& review, const Pictures& pictures) : review_(review), pictures_(pictures) {}

    // The view of the window may be too small for its picture: one of its own shows all of it. A disk that is full is
    // noticed with the last bytes.
    bool SavePicture(const std::filesystem::path& bitmap) override
    {
        TraceView whole(review_, pictures_, nullptr);
        whole.resize(whole.PictureSize());
        QSaveFile file(QString::fromStdString(bitmap.string()));
        return file.open(QIODevice::WriteOnly) && whole.grab().save(&file, "BMP") && file.commit();
    }

    std::unique_ptr<Printer> PdfPrinter(const std::filesystem::path& pdf) override
    {
        return std::make_unique<QtPrinter>(pictures_, QString::fromStdString(pdf.string()));
    }

private:
    RecordReview& review_;
    const Pictures& pictures_;
};

}  // namespace

ReviewDesk::ReviewDesk(SharedState& state, WindowOpener& windows, MessageBox& messages, Printer& printer, Clock& clock,
                       const Pictures& pictures)
    : state_(state),
      windows_(windows),
      messages_(messages),
      printer_(printer),
      clock_(clock),
      pictures_(pictures),
      mailbox_(state, messages),
      review_(state)
{}

void ReviewDesk::Open(QWidget* parent)
{
    Close();
    delete window_;
    window_ = new frmxECG(state_, review_, windows_, messages_, clock_, pictures_, parent);
    window_->OnPrint = [this] { Print(); };
    window_->OnExport = [this] { Export(); };
    window_->OnPost = [this] { Post(); };
    if (parent != nullptr)
        window_->setWindowState(parent->windowState() & ~Qt::WindowMinimized);
    if (!window_->Open()) {
        delete window_;
        return;
    }
    window_->show();
    window_->raise();
    window_->activateWindow();
}

void ReviewDesk::Close()
{
    if (window_)
        window_->close();
}

bool ReviewDesk::IsOpen() const
{
    return window_ && window_->isVisible();
}

void ReviewDesk::Print()
{
    const ReportPrinting outcome = PrintReport(printer_, windows_, state_, review_, clock_.Now().Year);
    if (outcome == ReportPrinting::NoPrinter)
        Tell(noPrinter);
    if (outcome == ReportPrinting::Failed)
        Tell(notPrinted);
}

void ReviewDesk::Export()
{
    switch (WriteExport()) {
    case ReportExport::Exported:
        return Tell(exported);
    case ReportExport::NoFolder:
        return Tell(noFolder);
    case ReportExport::Failed:
        return Tell(notExported);
    }
}

ReportExport ReviewDesk::WriteExport()
{
    const BusyCursor busy;
    WindowExporter exporter(review_, pictures_);
    return ExportReport(review_, exporter, clock_.Now().Year);
}

void ReviewDesk::Post()
{
    const auto beat = static_cast<Byte>(review_.View.SelectedBeat);
    switch (mailbox_.PostToMailbox(beat, review_.Result.Params)) {
    case PostOutcome::Posted:
        return Tell(posted);
    case PostOutcome::Kept:
        return;
    case PostOutcome::NotWritten:
        return Tell(notPosted);
    }
}

void ReviewDesk::Tell(const Twin& text)
{
    messages_.Tell(text.In(state_.SysInfo), labels::Program.In(state_.SysInfo));
}

}  // namespace ecg
