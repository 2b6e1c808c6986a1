// Any bytes as a workbook for the tests' reader: a Book or a std::runtime_error, nothing else,
// and a Book whose cells and merges stand inside Excel's sheet.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "xlsxread/xlsx_reader.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    namespace xr = quillon::xlsxread;
    xr::Book book;
    try {
        book = xr::ReadXlsxData(std::string_view(reinterpret_cast<const char*>(data), size));
    } catch (const std::runtime_error&) {
        return 0;
    }
    for (const auto& sheet : book.sheets) {
        for (const auto& [at, cell] : sheet.cells) {
            if (at.first < 1 || at.first > 1048576 || at.second < 1 || at.second > 16384) {
                std::fprintf(stderr, "cell outside the sheet: %d,%d\n", at.first, at.second);
                std::abort();
            }
        }
    }
    return 0;
}
