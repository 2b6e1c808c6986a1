#include "workbench/detail_fields.h"

#include "base/vb_number.h"
#include "base/vb_text.h"
#include "db/recordset.h"

namespace quillon {

double CentsOf(const Field& field) {
    return field.IsNull() ? 0.0 : CentsValue(field.Value().AsNumber());
}

void ItemAmountReader::Read(const Recordset& rs, std::vector<double>& amounts) {
    if (developerShare_.empty() && count_ > 0) {
        developerShare_.resize(count_);
        for (int j = 0; j < count_; ++j) developerShare_[j] = Contains(rs.Fields(first_ + j).Name(), "KFS");
    }
    amounts.resize(count_);
    for (int j = 0; j < count_; ++j) {
        const Field f = rs.Fields(first_ + j);
        if (developerShare_[j]) {
            const double wy = CentsOf(rs.Fields(first_ + j + 1));
            amounts[j] = f.IsNull() ? 0.0 : CentsValue(f.Value().AsNumber() - wy);
        } else {
            amounts[j] = CentsOf(f);
        }
    }
}

std::string DateFieldText(const Field& field) {
    return field.IsNull() ? std::string() : Format(field.Value().AsDate(), "yyyy-mm-dd");
}

std::string PayerWithAddress(const Recordset& rs) {
    const Field payer = rs.Fields("付款人");
    std::string text = payer.IsNull() ? std::string() : Replace(payer.Value().AsText(), "\r\n", "");
    const Field address = rs.Fields("地址");
    if (!address.IsNull()) {
        text += ' ';
        text += Replace(address.Value().AsText(), "\r\n", "");
    }
    return text;
}

} // namespace quillon
