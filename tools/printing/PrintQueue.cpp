#include "printing/PrintQueue.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStringList>
#include <QThread>

#include <array>
#include <csignal>
#include <fstream>
#include <sstream>
#include <sys/prctl.h>
#include <unistd.h>

namespace ecg {
namespace {

constexpr const char* schedulerProgram = "/usr/sbin/cupsd";
constexpr const char* adminProgram = "/usr/sbin/lpadmin";
constexpr const char* backend = "/usr/lib/cups/backend/cups-pdf";
constexpr const char* description = "/usr/share/ppd/cups-pdf/CUPS-PDF_noopt.ppd";
constexpr const char* backendLogs = "/var/log/cups";

constexpr int startMs = 10000;
constexpr int stopMs = 5000;
constexpr int pollMs = 20;
constexpr int jobsPerProcess = 500;  // keeps the numbers of all processes below 2^31

namespace fs = std::filesystem;

void Write(const fs::path& file, const std::string& text)
{
    std::ofstream(file) << text;
}

void Allow(const fs::path& path, unsigned mode)
{
    std::error_code error;
    fs::permissions(path, static_cast<fs::perms>(mode), error);
}

}  // namespace

std::string PrintQueue::WhyNot()
{
    for (const char* file : {schedulerProgram, adminProgram, backend, description}) {
        std::error_code error;
        if (!fs::exists(file, error))
            return std::string(file) + " is missing: packages cups and printer-driver-cups-pdf";
    }
    if (geteuid() != 0)
        return std::string(backend) + " works for root only";
    return {};
}

PrintQueue::PrintQueue()
    : folder_(QDir::tempPath() + "/ecg-print-XXXXXX"),
      name_("ecg-report-" + std::to_string(getpid())),
      firstJob_(getpid() * jobsPerProcess + 1)
{
    reason_ = Open();
}

PrintQueue::~PrintQueue()
{
    scheduler_.terminate();
    if (!scheduler_.waitForFinished(stopMs))
        scheduler_.kill();
    scheduler_.waitForFinished(stopMs);
    // The one place of its own that the backend knows.
    std::error_code error;
    fs::remove(fs::path(backendLogs) / ("cups-pdf-" + name_ + "_log"), error);
}

fs::path PrintQueue::File(const char* name) const
{
    return fs::path(folder_.path().toStdString()) / name;
}

std::string PrintQueue::Open()
{
    if (const std::string why = WhyNot(); !why.empty())
        return why;
    if (!folder_.isValid())
        return "no temporary folder: " + folder_.errorString().toStdString();
    WriteConfiguration();
    WriteDelivery();
    StartScheduler();
    QElapsedTimer clock;
    clock.start();
    std::error_code error;
    while (!fs::is_socket(File("socket"), error)) {
        if (scheduler_.state() != QProcess::Running || clock.hasExpired(startMs))
            return "the scheduler did not start: " + scheduler_.readAll().toStdString() + LogText();
        scheduler_.waitForFinished(pollMs);
    }
    LeadProcessHere();
    return AddPrinter() ? "" : "the printer was not added: " + LogText();
}

std::string PrintQueue::LogText() const
{
    std::ostringstream text;
    text << std::ifstream(File("error_log")).rdbuf();
    return text.str();
}

void PrintQueue::WriteConfiguration() const
{
    const std::string folder = File("").string();
    for (const char* part : {"etc", "spool/tmp", "cache", "state"})
        fs::create_directories(File(part));
    Allow(folder, 0755);  // filters and the backend run as users of their own
    Write(File("files.conf"), "ServerRoot " + folder + "etc\nRequestRoot " + folder + "spool\nTempDir " + folder +
                                  "spool/tmp\nCacheDir " + folder + "cache\nStateDir " + folder + "state\nAccessLog " +
                                  folder + "access_log\nErrorLog " + folder + "error_log\nPageLog " + folder +
                                  "page_log\nPrintcap\nSystemGroup root\nSyncOnClose No\n");
    Write(File("cupsd.conf"),
          "Listen " + folder +
              "socket\nLogLevel warn\nPreserveJobFiles Yes\nBrowsing Off\nWebInterface No\nDefaultAuthType None\n"
              "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
              "<Policy default>\n  <Limit All>\n    Order deny,allow\n  </Limit>\n</Policy>\n");
    // Documents pass through a folder of the backend that all queues of the machine share: job numbers are unique there.
    Write(File("cache/job.cache"), "NextJobId " + std::to_string(firstJob_) + "\n");
}

// What the backend calls with each finished file, as a user without rights. A file appears under its name when it is whole.
void PrintQueue::WriteDelivery() const
{
    const std::string folder = File("printed").string();
    fs::create_directory(folder);
    Allow(folder, 0777);
    Write(File("deliver"), "#!/bin/sh\n"
                           "job=${1##*/job_}\n"
                           "mv \"$1\" " +
                               folder + "/part && mv " + folder + "/part " + folder + "/\"${job%%-*}\".pdf\n");
    Allow(File("deliver"), 0755);
}

void PrintQueue::StartScheduler()
{
    scheduler_.setProcessChannelMode(QProcess::MergedChannels);
    scheduler_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
    scheduler_.start(schedulerProgram, {"-f", "-c", QString::fromStdString(File("cupsd.conf").string()), "-s",
                                        QString::fromStdString(File("files.conf").string())});
    scheduler_.waitForStarted(startMs);
}

// A user whom the machine does not know leaves nothing in anybody's home.
void PrintQueue::LeadProcessHere() const
{
    qputenv("CUPS_SERVER", File("socket").c_str());
    qputenv("CUPS_USER", name_.c_str());
    qputenv("LPDEST", name_.c_str());
}

// The renderer is the one that lays a landscape page as it is read, and not on its side.
bool PrintQueue::AddPrinter() const
{
    const QString name = QString::fromStdString(name_);
    const QStringList words{"-p",
                            name,
                            "-v",
                            "cups-pdf:/",
                            "-P",
                            description,
                            "-E",
                            "-o",
                            "pdftops-renderer-default=pdftops",
                            "-o",
                            "PageSize=A4",
                            "-o",
                            "printer-error-policy=abort-job",
                            "-o",
                            "Label-default=1",
                            "-o",
                            "PostProcessing-default=" + QString::fromStdString(File("deliver").string())};
    QProcess admin;
    for (const QStringList& arguments : {words, QStringList{"-d", name}}) {
        admin.start(adminProgram, arguments);
        if (!admin.waitForFinished(startMs) || admin.exitStatus() != QProcess::NormalExit || admin.exitCode() != 0)
            return false;
    }
    return true;
}

std::optional<PrintedDocument> PrintQueue::Take()
{
    const std::string job = std::to_string(firstJob_ + taken_);
    const PrintedDocument document{File("spool") / ("d" + job + "-001"), File("printed") / (job + ".pdf")};
    std::error_code error;
    if (!fs::exists(document.Printed, error))
        return std::nullopt;
    ++taken_;
    return document;
}

}  // namespace ecg
