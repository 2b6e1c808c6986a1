// console_dialogs.h — the CLI's dialogs: scripted answers, and every message box printed to
// stderr as "[title] text" so that a scripted run shows what a user would have seen.
#pragma once

#include <cstdio>

#include "controls/scripted_dialogs.h"

namespace quillon {

class ConsoleDialogs : public ScriptedDialogs {
public:
    ConsoleDialogs() {
        MessageShown.Connect([](const RecordedMessage& m) {
            std::fprintf(stderr, "[%s] %s\n", m.Title.empty() ? "Quillon收费报表" : m.Title.c_str(),
                         m.Text.c_str());
        });
    }
};

} // namespace quillon
