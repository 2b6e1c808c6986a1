#include "workbench/detail_fields.h"

#include "base/vb_number.h"
#include "base/vb_text.h"
#include "db/recordset.h"

namespace quillon {

double CentsOf(const Field& field) {
    return field.IsNull() ? 0.0 : CentsValue(field.Value().AsNumber());
}

std::vector<double> ReadItemAmounts(const Recordset& rs, int firstField, int count) {
    std::vector<double> amounts(count, 0.0);
    for (int j = 0; j < count; ++j) {
        const Field f = rs.Fields(firstField + j);
        if (Contains(f.Name(), "KFS")) {
            const double wy = CentsOf(rs.Fields(firstField + j + 1));
            amounts[j] = f.IsNull() ? 0.0 : CentsValue(f.Value().AsNumber() - wy);
        } else {
            amounts[j] = CentsOf(f);
        }
    }
    return amounts;
}

std::string DateFieldText(const Field& field) {
    return field.IsNull() ? std::string() : Format(field.Value().AsDate(), "yyyy-mm-dd");
}

std::string PayerWithAddress(const Recordset& rs) {
    const Field payer = rs.Fields("付款人");
    std::string text = payer.IsNull() ? std::string() : Replace(payer.Value().AsText(), "\r\n", "");
    const Field address = rs.Fields("地址");
    if (!address.IsNull()) text += " " + Replace(address.Value().AsText(), "\r\n", "");
    return text;
}

} // namespace quillon
