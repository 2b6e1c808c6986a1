// writer.cpp — model layer, demo data: catalogues, property and bills into their tables.
#include "model/demo/writer.h"

#include <algorithm>
#include <string>

#include "model/demo/catalogue.h"

namespace quillon::demo {

void DemoWriter::WriteCatalogues() {
    {
        Statement s(db_, "INSERT INTO 职能部门new (职能部门编号, 职能部门名称, 终止日期) VALUES (?, ?, ?)");
        for (const auto& d : kDepartments) s.Bind(d.code).Bind(d.name).Bind(b_.calendar_.Date(d.ended)).Run();
    }
    {
        Statement s(db_, "INSERT INTO 上级部门new (职能部门编号, 上级部门编号, 终止日期) VALUES (?, ?, ?)");
        for (const auto& l : kLinks) s.Bind(l.dept).Bind(l.parent).Bind(b_.calendar_.Date(l.ended)).Run();
    }
    {
        Statement s(db_,
                    "INSERT INTO 设置管理处 (GYD_DH, GYD_NAME, 对应部门代号, 终止日期) VALUES (?, ?, ?, ?)");
        for (const auto& o : kOffices)
            s.Bind(o.code).Bind(o.name).Bind(o.dept).Bind(b_.calendar_.Date(o.ended)).Run();
    }
    {
        Statement s(db_, "INSERT INTO 票据类型 (票据类型代号, 票据类型, 定额, 类别) VALUES (?, ?, ?, ?)");
        for (const auto& t : kTypes) s.Bind(t.code).Bind(t.name).Bind(t.fixedValue).Bind(t.kind).Run();
    }
    {
        Statement s(db_, "INSERT INTO 票据入库单 (入库单编号, 票据类型编号) VALUES (?, ?)");
        for (const auto& [lot, type] : b_.lots_) s.Bind(lot).Bind(kTypes[type].code).Run();
    }
    {
        // The item's rate as a fraction: the detail reports print its header "税额{rate×100}%".
        Statement s(db_, "INSERT INTO SetupSFXM (DH, XM, 收费类别, 显示名称, 税率) VALUES (?, ?, ?, ?, ?)");
        for (const auto& i : kItems)
            s.Bind(i.code).Bind(i.name).Bind(i.category).Bind(i.display).Bind(i.rate / 100.0).Run();
    }
    {
        // The tax device of each office knows the items it bills, at rates in percent; 国贸公寓 has its rent
        // set up at two rates (general and simplified), as some offices do.
        Statement s(db_, "INSERT INTO 税控盘收费项目设置 (DH, 税率, 管理处) VALUES (?, ?, ?)");
        for (int o = 0; o < kOfficeCount; ++o) {
            std::vector<int> items = b_.offices_[o].receiptItems;
            std::sort(items.begin(), items.end());
            for (int item : items) {
                s.Bind(kItems[item].code)
                    .Bind(static_cast<double>(kItems[item].rate))
                    .Bind(kOffices[o].code)
                    .Run();
                if (item == kRent && std::string(kOffices[o].code) == "7")
                    s.Bind(kItems[item].code).Bind(5.0).Bind(kOffices[o].code).Run();
            }
        }
    }
    {
        Statement s(db_, "INSERT INTO 收款方式列表 (收款方式) VALUES (?)");
        for (const char* m : kPaymentModes) s.Bind(m).Run();
    }
    {
        struct Right {
            int id;
            const char* group;
            const char* post;
            int granted;
        };
        const Right rights[] = {{1, "CWBB", "财务主管", 1},
                                {2, "CWCX", "会计", 1},
                                {3, "CWBB", "出纳", 0},
                                {4, "CWCX", "出纳", 1}};
        Statement s(db_, "INSERT INTO 岗位权限设置 (id, 组代号, 岗位代号, 授权) VALUES (?, ?, ?, ?)");
        for (const auto& r : rights) s.Bind(r.id).Bind(r.group).Bind(r.post).Bind(r.granted).Run();
        struct Privilege {
            const char* group;
            const char* form;
            int popedom;
            const char* memo;
        };
        const Privilege privileges[] = {
            {"CWBB", "停车费明细表", 1, "收费报表"},         {"CWBB", "增值税开票明细表", 1, "收费报表"},
            {"CWBB", "增值税预开明细表", 1, "收费报表"},     {"CWBB", "开票票据核对表", 1, "收费报表"},
            {"CWBB", "增值税开票统计汇总表", 1, "收费报表"}, {"CWBB", "预开票汇总表", 1, "收费报表"},
            {"CWCX", "增值税开票明细表", 1, "收费报表"},     {"CWCX", "预开票汇总表", 0, "收费报表"},
            {"CWCX", "开票票据核对表", 0, "收费报表"},       {"CWCX", "收费录入", 1, "收费系统"},
        };
        Statement p(db_, "INSERT INTO GroupPrivilege (GroupID, FormName, Popedom, Memo) VALUES (?, ?, ?, ?)");
        for (const auto& r : privileges) p.Bind(r.group).Bind(r.form).Bind(r.popedom).Bind(r.memo).Run();
    }
}

void DemoWriter::WriteProperty() {
    {
        Statement s(db_, "INSERT INTO 楼表 (L_id, 管理处, 地址1, 字1, 地址2, 字2, 地址3, 字3, 地址4, 字4) "
                         "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
        for (const auto& bd : b_.buildings_)
            s.Bind(bd.id)
                .Bind(bd.office)
                .Bind(bd.a1)
                .Bind(bd.z1)
                .Bind(bd.a2)
                .Bind(bd.z2)
                .Bind(bd.a3)
                .Bind(bd.z3)
                .Bind(bd.a4)
                .Bind(bd.z4)
                .Run();
    }
    {
        Statement s(db_, "INSERT INTO 室表 (S_ID, L_id, 室) VALUES (?, ?, ?)");
        for (const auto& r : b_.roomRows_) s.Bind(r.id).Bind(r.building).Bind(r.room).Run();
    }
    {
        Statement s(db_, "INSERT INTO 业主表 (ZH_ID, S_ID, 姓名) VALUES (?, ?, ?)");
        for (const auto& o : b_.ownerRows_) s.Bind(o.id).Bind(o.room).Bind(o.name).Run();
    }
    {
        Statement s(db_, "INSERT INTO 车位说明表 (ID, 产权人, 管理处) VALUES (?, ?, ?)");
        for (const auto& h : b_.spaceRows_) s.Bind(h.id).Bind(h.name).Bind(h.office).Run();
    }
    {
        Statement s(db_, "INSERT INTO 车位申请登记表 (登记ID, 车主姓名, 管理处) VALUES (?, ?, ?)");
        for (const auto& h : b_.regRows_) s.Bind(h.id).Bind(h.name).Bind(h.office).Run();
    }
}

void DemoWriter::WriteInvoices() {
    Statement bill(db_,
                   "INSERT INTO 票据 (ID, 入库单编号, 票据编号, 开票部门编号, 开票日期, 收款日期, 预开, "
                   "作废日期, 退票日期, 内换日期, 内换票据编号, 对应调换票据入库单, 被换票票据编号, "
                   "被换票入库单编号, 金额, 收款方式, 付款人, 地址, 收款人, 开票人, 交易订单号, 发票代码) "
                   "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    Statement line(db_,
                   "INSERT INTO 票据开票数据 (票据id, 入库单编号, 票据编号, 收费项目代号, 项目, 摘要, 金额, "
                   "税额, 税率) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)");
    const BookCalendar& calendar = b_.calendar_;
    auto date = [&calendar](const std::optional<int>& day) -> OptText {
        if (!day) return std::nullopt;
        return calendar.Date(*day);
    };
    for (std::size_t ix : b_.order_) {
        const Draft& d = b_.drafts_[ix];
        OptText paid;
        if (d.paidDay)
            paid =
                d.paidSecond >= 0 ? calendar.DateTime(*d.paidDay, d.paidSecond) : calendar.Date(*d.paidDay);
        OptText exNumber, exLot, repNumber, repLot;
        if (d.exchangedTo >= 0) {
            const Draft& to = b_.drafts_[static_cast<std::size_t>(d.exchangedTo)];
            exNumber = to.number;
            exLot = to.lot;
        }
        if (d.replaces >= 0) {
            const Draft& from = b_.drafts_[static_cast<std::size_t>(d.replaces)];
            repNumber = from.number;
            repLot = from.lot;
        }
        // A bill that was paid is collected by one of the office's cashiers.
        OptText taker;
        if (d.paidDay) taker = d.taker;
        bill.Bind(d.id)
            .Bind(d.lot)
            .Bind(d.number)
            .Bind(kOffices[d.office].dept)
            .Bind(calendar.DateTime(d.issueDay, d.issueSecond))
            .Bind(paid)
            .Bind(d.preInvoice)
            .Bind(date(d.voidDay))
            .Bind(date(d.returnDay))
            .Bind(date(d.exchangeDay))
            .Bind(exNumber)
            .Bind(exLot)
            .Bind(repNumber)
            .Bind(repLot)
            .Bind(Money(d.Amount()))
            .Bind(d.mode)
            .Bind(d.payer)
            .Bind(d.address)
            .Bind(taker)
            .Bind(d.writer)
            .Bind(d.orderNo)
            .Bind(kTypes[d.type].invoiceCode)
            .Run();
        for (const Line& l : d.lines) {
            line.Bind(d.id).Bind(d.lot).Bind(d.number).Bind(kItems[l.item].code).Bind(kItems[l.item].name);
            line.Bind(l.summary).Bind(Money(l.amount));
            if (l.tax)
                line.Bind(Money(*l.tax));
            else
                line.Null();
            line.Bind(static_cast<double>(l.rate) / 100.0).Run();
        }
    }
}

void DemoWriter::WriteAll() {
    WriteCatalogues();
    WriteProperty();
    WriteInvoices();
    WriteLedger();
}

} // namespace quillon::demo
