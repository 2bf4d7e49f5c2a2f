#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

#include "Corvale/model/Platform.h"

namespace corvale {

// What background work came to: a value, or the exception that it ended with.
template <typename Value>
struct Outcome {
    std::optional<Value> value;
    std::exception_ptr failure;

    // The value, which the caller has to destroy from now on. There is one.
    Value take() {
        Value taken = std::move(*value);
        value.reset();
        return taken;
    }
};

// Background work of one owner on the main thread: what it comes to is delivered only while the owner lives. Values
// that nobody took are destroyed off the main thread, where freeing a million rows disturbs nobody.
class BackgroundJobs {
public:
    // The platform outlives this object.
    explicit BackgroundJobs(Platform& platform) : m_platform(platform) {}

    // Runs `work` off the main thread, then `done` with its Outcome by reference on it. When memory runs out on the way
    // back, that is the failure.
    template <typename Work, typename Done>
    void run(Work work, Done done) {
        using Value = std::invoke_result_t<Work>;
        // All that is needed afterwards is made now, while there is memory.
        auto outcome = std::make_shared<Outcome<Value>>();
        std::function<void()> deliver =
            [alive = std::weak_ptr(m_alive), &platform = m_platform, outcome, done = std::move(done)]() mutable {
                if (alive.lock()) {
                    done(*outcome);
                }
                if (!std::is_trivially_destructible_v<Value> && outcome->value) {
                    discardOn(platform, outcome->take());
                }
            };
        m_platform.runInBackground(
            [&platform = m_platform, outcome, work = std::move(work), deliver = std::move(deliver)]() mutable {
                try {
                    outcome->value.emplace(work());
                } catch (...) {
                    outcome->failure = std::current_exception();
                }
                post(platform, *outcome, deliver);
            });
    }

    // Lets `deliver` run on the main thread while the owner lives. The returned function may be called on any thread.
    template <typename Value>
    std::function<void(Value)> relay(std::function<void(Value)> deliver) {
        return [&platform = m_platform, guarded = whileAlive(std::move(deliver))](Value value) {
            platform.runOnMain([guarded, value] { guarded(value); });
        };
    }

    // The same function, which does nothing once the owner is gone. Called on the main thread.
    template <typename... Values>
    std::function<void(Values...)> whileAlive(std::function<void(Values...)> function) {
        return [alive = std::weak_ptr(m_alive), function = std::move(function)](Values... values) {
            if (alive.lock()) {
                function(values...);
            }
        };
    }

    // Destroys the value off the main thread.
    template <typename Value>
    void discard(Value value) {
        discardOn(m_platform, std::move(value));
    }

private:
    // Whoever waits for the outcome has to hear of it: what takes the memory for that is given up.
    template <typename Value>
    static void post(Platform& platform, Outcome<Value>& outcome, const std::function<void()>& deliver) {
        for (;;) {
            try {
                platform.runOnMain(deliver);
                return;
            } catch (const std::bad_alloc&) {
                outcome.value.reset();
                outcome.failure = std::current_exception();
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        }
    }

    template <typename Value>
    static void discardOn(Platform& platform, Value value) {
        try {
            auto box = std::make_shared<std::optional<Value>>(std::move(value));
            platform.runInBackground([box] { box->reset(); });
        } catch (const std::bad_alloc&) {
            // Then it is destroyed here, which may take a moment.
        }
    }

    Platform& m_platform;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

}  // namespace corvale
