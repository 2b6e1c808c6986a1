// detail_rig.h — test support for the detail windows: a hand-made database, a session on it that
// records every statement sent, and the user's steps (department, range, Command3, the split
// typed into MSFlexGrid2).
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "base/date_time.h"
#include "controls/scripted_dialogs.h"
#include "db/connection.h"
#include "shell/app_session.h"
#include "support/grid_lines.h"
#include "support/test_billing_db.h"
#include "workbench/split_ratio_table.h"

namespace quillon {

inline DateTime Day(int y, int m, int d) {
    return DateTime{y, m, d};
}

template <typename Window> class DetailWindowTest : public ::testing::Test {
protected:
    // A new session and window on the database as it stands; the window is loaded.
    Window& Open() {
        session.DbConnection = std::make_unique<Connection>();
        session.DbConnection->ConnectionString = db.ConnectionText();
        session.DbConnection->OnStatement = [this](const std::string& sql) { sent.push_back(sql); };
        session.DbConnection->Open();
        window = std::make_unique<Window>(session, dialogs);
        window->Load();
        return *window;
    }

    // The first department entry, the range, Command3.
    void Extract(const DateTime& from, const DateTime& to) {
        window->List1.SetListIndex(0);
        window->DTPicker1_0.SetValue(from);
        window->DTPicker1_1.SetValue(to);
        window->Command3.Click();
    }
    void Extract() { Extract(rangeStart, rangeEnd); }

    // Types the two percentages of an item as a user does, Enter after each.
    void Split(const std::string& code, const std::string& developer, const std::string& property) {
        Window& w = *window;
        w.MSFlexGrid2.ClickCell(w.SplitTable.RowOf("'" + code + "'"), kSplitDeveloperCol);
        for (const std::string& typed : {developer, property}) {
            w.txtGRD.SetText(typed);
            w.txtGRD.PressKey(13);
        }
    }

    Lines Messages() const {
        Lines texts;
        for (const auto& m : dialogs.Messages()) texts.push_back(m.Text);
        return texts;
    }

    DateTime rangeStart = Day(2024, 1, 1), rangeEnd = Day(2024, 3, 31); // of Extract()
    TestBillingDb db;
    AppSession session;
    ScriptedDialogs dialogs;
    std::vector<std::string> sent;
    std::unique_ptr<Window> window;
};

} // namespace quillon
