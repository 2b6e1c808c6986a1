#include "controls/dialogs.h"

#include "base/vb_error.h"

namespace quillon {

std::string RuntimeErrorText(long number, std::string_view description) {
    std::string text = "运行时错误 '" + std::to_string(number) + "':\n\n";
    text += description;
    return text;
}

Dialogs::~Dialogs() = default;

void Dialogs::ShowSave(CommonDialogState& state) {
    std::string path = state.FileName;
    if (AskSaveFileName(state, path)) {
        state.FileName = std::move(path);
        return;
    }
    if (state.CancelError) throw VbError(kErrCancel, "取消被选中。");
}

} // namespace quillon
