// Reads PDF files with the programs of poppler, to see what a reader of them sees.
#pragma once

#include <QImage>

#include <filesystem>
#include <string>

namespace ecg {

struct PdfFacts {
    int Pages = 0;
    double WidthMm = 0;  // of the first page, as it is shown
    double HeightMm = 0;
};

// No pages when it cannot be read.
PdfFacts ReadPdf(const std::filesystem::path& pdf);

// The words of all pages in the order in which they are read, UTF-8.
std::string PdfText(const std::filesystem::path& pdf);

// The first page; null when it cannot be read.
QImage PdfPicture(const std::filesystem::path& pdf, int dpi);

}  // namespace ecg
