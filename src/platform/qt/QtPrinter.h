// The default printer of the machine, or a PDF file in its place. The cursor shows waiting while a document is made.
#pragma once

#include "platform/Printer.h"
#include "platform/qt/BusyCursor.h"
#include "platform/qt/QtSurface.h"

#include <QPrinter>

#include <memory>
#include <optional>

namespace ecg {

class QtPrinter final : public Printer {
public:
    // With `pdfFile` every document is written there instead of being printed.
    explicit QtPrinter(const Pictures& pictures, QString pdfFile = {});
    ~QtPrinter() override;

    std::string Name() const override;
    bool PrintsColour() const override;
    Surface* StartDocument(std::string_view title, bool portrait, bool fine) override;
    bool NewPage() override;
    bool EndDocument() override;

private:
    const Pictures& pictures_;
    QString pdfFile_;
    std::unique_ptr<QPrinter> device_;
    std::unique_ptr<QPainter> painter_;
    std::unique_ptr<QtSurface> page_;
    std::optional<BusyCursor> busy_;
};

}  // namespace ecg
