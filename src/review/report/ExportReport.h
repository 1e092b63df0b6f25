// Lays the report of a review down as files for other programs, in the folder that the hospital has named.
//
//   FileDir.txt in the program's folder, first line: the folder ─► <medical number>.bmp  the picture of the view
//                                                                  <medical number>.txt  remark, date, doctor
//                                                                  <medical number>.pdf  the printed page
#pragma once

#include "platform/Printer.h"
#include "review/RecordReview.h"

#include <filesystem>
#include <memory>

namespace ecg {

// What the window does for an export.
class ReportExporter {
public:
    virtual ~ReportExporter() = default;

    // Saves the whole picture of the traces, of which the screen may show a part. False: it could not be written.
    virtual bool SavePicture(const std::filesystem::path& bitmap) = 0;

    // A printer whose document becomes the file `pdf`.
    virtual std::unique_ptr<Printer> PdfPrinter(const std::filesystem::path& pdf) = 0;
};

enum class ReportExport {
    Exported,
    NoFolder,  // FileDir.txt is missing or names no folder
    Failed     // not all files could be written
};

// Writes the three files; those of an earlier export of the same patient are replaced. The folder may be written with
// slashes or backslashes, in UTF-8 or GBK; a relative one counts from the program's folder. `year` is this year.
ReportExport ExportReport(const RecordReview& review, ReportExporter& exporter, int year);

}  // namespace ecg
