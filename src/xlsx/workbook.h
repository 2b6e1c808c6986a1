// workbook.h — workbook layer: what Workbooks.Add gives a report writer: a workbook of one sheet,
// held in memory and saved as .xlsx through libxlsxwriter.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "xlsx/cell_style.h"
#include "xlsx/worksheet.h"

namespace quillon {

class Workbook {
public:
    Workbook();
    ~Workbook();
    Workbook(Workbook&&) noexcept;
    Workbook& operator=(Workbook&&) noexcept;

    // Worksheets(1); any other index is VbError 9 "下标越界".
    Worksheet& Worksheets(int index);
    Worksheet& ActiveSheet() { return *sheet_; }

    // Saves as .xlsx. A file name without extension gets ".xlsx"; an existing file is
    // overwritten without a question. VbError 1004 "无法保存文件: {path}" when the file cannot
    // be written (missing folder, no permission).
    void SaveAs(std::string_view path);

    // Distinct cell formats made so far, the default one included; a format that a later
    // change left behind still counts. The file holds only those cells use.
    std::size_t StyleCount() const { return styles_->Count(); }

    // The path SaveAs writes: ".xlsx" appended when the file name part has no ".".
    static std::string PathWithDefaultExtension(std::string_view path);

private:
    std::unique_ptr<StylePool> styles_;
    std::unique_ptr<Worksheet> sheet_;
};

} // namespace quillon
