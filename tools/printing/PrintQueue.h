// A real printer of CUPS that writes PDF files, for as long as the object lives.
//
//   program ─► libcups ─► cupsd of its own ─► filters ─► backend cups-pdf ─► deliver ─► <folder>/printed/<job>.pdf
//
// The scheduler has its configuration, spool, logs and socket in a temporary folder, so that the machine's own printing
// is never touched, and any number of queues can run side by side. It ends with this process, however that ends.
//
// The environment of this process is led to the queue, as its default printer. That must be done before the process
// asks for printers for the first time, and stays so.
#pragma once

#include <QProcess>
#include <QTemporaryDir>

#include <filesystem>
#include <optional>
#include <string>

namespace ecg {

struct PrintedDocument {
    std::filesystem::path Sent;     // as the program gave it to CUPS, with its words
    std::filesystem::path Printed;  // as the printer made it; letters are only shapes there
};

class PrintQueue {
public:
    // Why there cannot be such a queue here: packages are missing, or the user is not root, as the backend demands.
    // Empty when there can be one.
    static std::string WhyNot();

    PrintQueue();
    PrintQueue(const PrintQueue&) = delete;
    PrintQueue& operator=(const PrintQueue&) = delete;
    ~PrintQueue();

    bool IsOk() const { return reason_.empty(); }
    const std::string& Reason() const { return reason_; }  // why the queue does not work

    // The next document in the order of printing, when it is finished. Its files are gone with this object.
    std::optional<PrintedDocument> Take();

private:
    std::filesystem::path File(const char* name) const;
    std::string Open();
    std::string LogText() const;
    void WriteConfiguration() const;
    void WriteHere(const char* name, std::string text) const;
    void StartScheduler();
    void LeadProcessHere() const;
    bool AddPrinter() const;

    QTemporaryDir folder_;
    QProcess scheduler_;
    std::string name_;
    std::string reason_;
    int firstJob_;
    int taken_ = 0;
};

}  // namespace ecg
