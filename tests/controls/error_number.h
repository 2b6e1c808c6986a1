// error_number.h — test helper for the control models: which old error number a call raises.
#pragma once

#include <functional>

#include "base/vb_error.h"

namespace quillon {

// The number of the VbError the call raises, 0 when it raises none.
inline long ErrorNumberOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const VbError& e) {
        return e.Number;
    }
    return 0;
}

} // namespace quillon
