// detail_fields.h — workbench layer: how the detail reports read a bill's fields into their
// rows: money rounded to the cent, the split of a parking item, dates, payer and address.
#pragma once

#include <string>
#include <vector>

namespace quillon {

class Field;
class Recordset;

// A money field as the grid shows it, rounded to the cent; NULL counts 0.
double CentsOf(const Field& field);

// The money fields of an item group from ordinal firstField on, `count` of them. A field whose
// name holds "KFS" is the net amount of a parking item, followed by the property company's share
// (WY): the share is rounded to the cent, and the developer has what is left of the net amount,
// rounded again, so the two add up to the net amount. Which fields pair up is learnt from the
// names at the first bill, not again for every bill.
class ItemAmountReader {
public:
    ItemAmountReader(int firstField, int count) : first_(firstField), count_(count) {}
    // The current bill's amounts into `amounts`, reusing its room.
    void Read(const Recordset& rs, std::vector<double>& amounts);

private:
    int first_;
    int count_;
    std::vector<bool> developerShare_; // per field: a KFS field; empty until the first bill
};

// 开票日期 and the like as "yyyy-mm-dd"; NULL gives "".
std::string DateFieldText(const Field& field);

// 付款人 without its line breaks, then a blank and 地址 when there is one (so an address without
// a payer shows a leading blank).
std::string PayerWithAddress(const Recordset& rs);

} // namespace quillon
