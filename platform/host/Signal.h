#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tv::host {

// Keeps an observer registered for as long as it lives. May outlive what it was registered with. Movable.
class Subscription {
  public:
    Subscription() = default;
    explicit Subscription(std::function<void()> release) : m_release(std::move(release)) {}
    Subscription(Subscription&& other) noexcept : m_release(std::exchange(other.m_release, nullptr)) {}
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            reset();
            m_release = std::exchange(other.m_release, nullptr);
        }
        return *this;
    }
    ~Subscription() { reset(); }

    void reset() {
        if (auto release = std::exchange(m_release, nullptr)) release();
    }

  private:
    std::function<void()> m_release;
};

// A list of observers, told in the order in which they registered. Observers may register and unregister
// (themselves or others) while being told: one that was removed is not told any more, one that was added is
// told next time.
template <class... Args>
class Signal {
  public:
    using Listener = std::function<void(Args...)>;

    [[nodiscard]] Subscription connect(Listener listener) {
        const std::uint64_t id = ++m_state->lastId;
        m_state->entries.push_back({id, std::make_shared<Listener>(std::move(listener))});
        return Subscription([state = std::weak_ptr<State>(m_state), id] {
            if (auto alive = state.lock())
                std::erase_if(alive->entries, [id](const Entry& e) { return e.id == id; });
        });
    }

    void notify(Args... args) const {
        const auto state = m_state;
        const std::vector<Entry> told = state->entries;
        for (const Entry& entry : told) {
            const bool registered = std::any_of(state->entries.begin(), state->entries.end(),
                                                [&](const Entry& e) { return e.id == entry.id; });
            if (registered) (*entry.listener)(args...);
        }
    }

  private:
    struct Entry {
        std::uint64_t id;
        std::shared_ptr<Listener> listener;
    };
    struct State {
        std::uint64_t lastId = 0;
        std::vector<Entry> entries;
    };
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace tv::host
