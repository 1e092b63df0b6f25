#include "printing/PdfPage.h"

#include <QProcess>
#include <QRegularExpression>

#include <utility>

namespace ecg {
namespace {

constexpr int longestMs = 60000;
constexpr double mmPerPoint = 25.4 / 72;

QByteArray OutputOf(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, arguments);
    if (!process.waitForFinished(longestMs) || process.exitCode() != 0)
        return {};
    return process.readAllStandardOutput();
}

// A font may have one glyph for a character and for the radical of that shape; the file then names the radical.
bool IsRadical(QChar letter)
{
    return letter >= QChar(0x2F00) && letter <= QChar(0x2FD5);
}

}  // namespace

PdfFacts ReadPdf(const std::filesystem::path& pdf)
{
    const QString text = OutputOf("pdfinfo", {QString::fromStdString(pdf.string())});
    const auto number = [&text](const char* pattern) {
        return QRegularExpression(pattern).match(text).captured(1).toDouble();
    };
    PdfFacts facts{static_cast<int>(number("Pages: +(\\d+)")), number("Page size: +([\\d.]+)") * mmPerPoint,
                   number("Page size: +[\\d.]+ x ([\\d.]+)") * mmPerPoint};
    if (static_cast<int>(number("Page rot: +(\\d+)")) % 180 != 0)
        std::swap(facts.WidthMm, facts.HeightMm);
    return facts;
}

std::string PdfText(const std::filesystem::path& pdf)
{
    QString words;
    for (const QChar letter :
         QString::fromUtf8(OutputOf("pdftotext", {"-layout", QString::fromStdString(pdf.string()), "-"})))
        words += IsRadical(letter) ? QString(letter).normalized(QString::NormalizationForm_KC) : QString(letter);
    return words.toStdString();
}

QImage PdfPicture(const std::filesystem::path& pdf, int dpi)
{
    return QImage::fromData(OutputOf(
        "pdftoppm", {"-r", QString::number(dpi), "-singlefile", "-png", QString::fromStdString(pdf.string())}));
}

}  // namespace ecg
