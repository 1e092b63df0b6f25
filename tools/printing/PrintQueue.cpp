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

// In these texts @ is the folder of the queue.
constexpr const char* filesConfiguration = R"(ServerRoot @/etc
RequestRoot @/spool
TempDir @/spool/tmp
CacheDir @/cache
StateDir @/state
AccessLog @/access_log
ErrorLog @/error_log
PageLog @/page_log
Printcap
SystemGroup root
SyncOnClose No
)";

// Whoever reaches the socket may do everything: nobody else knows it.
constexpr const char* schedulerConfiguration = R"(Listen @/socket
LogLevel warn
PreserveJobFiles Yes
Browsing Off
WebInterface No
DefaultAuthType None
<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order deny,allow
  </Limit>
</Policy>
)";

// What the backend calls with each finished file, as a user without rights. A file gets its name when it is whole.
constexpr const char* delivery = R"(#!/bin/sh
job=${1##*/job_}
mv "$1" @/printed/part && mv @/printed/part "@/printed/${job%%-*}.pdf"
)";

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
    std::error_code error;
    for (const char* part : {"etc", "spool/tmp", "cache", "state", "printed"})
        fs::create_directories(File(part), error);
    Allow(File(""), 0755);  // filters and the backend run as users of their own
    Allow(File("printed"), 0777);
    WriteHere("files.conf", filesConfiguration);
    WriteHere("cupsd.conf", schedulerConfiguration);
    WriteHere("deliver", delivery);
    Allow(File("deliver"), 0755);
    // Documents pass through a folder that all queues of the machine share: job numbers must be unique there.
    WriteHere("cache/job.cache", "NextJobId " + std::to_string(firstJob_) + "\n");
}

void PrintQueue::WriteHere(const char* name, std::string text) const
{
    const std::string folder = folder_.path().toStdString();
    for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at + folder.size()))
        text.replace(at, 1, folder);
    std::ofstream(File(name)) << text;
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
