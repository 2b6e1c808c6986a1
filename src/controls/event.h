// event.h — controls layer: a small typed signal, the way a window or the Qt skin hears a control.
// Handlers run in connection order; they may connect or disconnect handlers while it is raised.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <utility>

namespace quillon {

template <typename... Args> class Event {
public:
    using Handler = std::function<void(Args...)>;
    using Id = std::size_t;

    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    Id Connect(Handler handler) {
        slots_.push_back(Slot{++lastId_, std::move(handler), true});
        return lastId_;
    }

    // Unknown ids are ignored, so a handler may disconnect itself twice without harm.
    void Disconnect(Id id) {
        for (auto& slot : slots_)
            if (slot.id == id) slot.live = false; // a running handler is not destroyed under itself
        if (depth_ == 0) Compact();
    }

    // Calls every handler connected before the raise began; an exception from a handler
    // stops the raise and reaches the caller, as a failure inside an event handler does.
    void Raise(Args... args) {
        struct Depth {
            Event& e;
            explicit Depth(Event& ev) : e(ev) { ++e.depth_; }
            ~Depth() {
                if (--e.depth_ == 0) e.Compact();
            }
        } depth(*this);
        const std::size_t count = slots_.size();
        for (std::size_t i = 0; i < count; ++i)
            if (slots_[i].live) slots_[i].handler(args...); // deque: connecting keeps it in place
    }

    std::size_t HandlerCount() const {
        std::size_t n = 0;
        for (const auto& slot : slots_)
            if (slot.live) ++n;
        return n;
    }

private:
    struct Slot {
        Id id;
        Handler handler;
        bool live;
    };

    void Compact() {
        std::erase_if(slots_, [](const Slot& s) { return !s.live; });
    }

    std::deque<Slot> slots_;
    Id lastId_ = 0;
    int depth_ = 0;
};

} // namespace quillon
