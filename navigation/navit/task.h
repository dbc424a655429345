// Chains of calls whose answers come later, written one below the other.
#pragma once

#include <coroutine>
#include <exception>
#include <functional>
#include <optional>
#include <utility>

namespace vk {

/// A part of a chain that gives a value to the one that awaits it. It begins when it is awaited.
template<class T> class Task {
  public:
    struct promise_type {
        std::optional<T> value;
        std::coroutine_handle<> awaiting;
        Task get_return_object() {
            return Task(std::coroutine_handle<promise_type>::from_promise(*this));
        }
        std::suspend_always initial_suspend() noexcept { return {}; }
        auto final_suspend() noexcept {
            struct GoOn {
                bool await_ready() noexcept { return false; }
                std::coroutine_handle<>
                await_suspend(std::coroutine_handle<promise_type> done) noexcept {
                    return done.promise().awaiting;
                }
                void await_resume() noexcept {}
            };
            return GoOn{};
        }
        void return_value(T given) { value = std::move(given); }
        void unhandled_exception() { std::terminate(); }
    };

    explicit Task(std::coroutine_handle<promise_type> frame) : frame_(frame) {}
    Task(Task&& other) noexcept : frame_(std::exchange(other.frame_, nullptr)) {}
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;
    ~Task() {
        if (frame_) frame_.destroy();
    }

    bool await_ready() const noexcept { return false; }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> awaiting) {
        frame_.promise().awaiting = awaiting;
        return frame_;
    }
    T await_resume() { return std::move(*frame_.promise().value); }

  private:
    std::coroutine_handle<promise_type> frame_;
};

/// The whole chain: begins at once and belongs to nobody. What it awaits has to be answered, so
/// that it comes to its end.
struct Chain {
    struct promise_type {
        Chain get_return_object() { return {}; }
        std::suspend_never initial_suspend() noexcept { return {}; }
        std::suspend_never final_suspend() noexcept { return {}; }
        void return_void() {}
        void unhandled_exception() { std::terminate(); }
    };
};

/// Awaits what answers by a callback, which may come before `begin` returns.
template<class T> class Answer {
  public:
    using Begin = std::function<void(std::function<void(T)>)>;
    explicit Answer(Begin begin) : begin_(std::move(begin)) {}
    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> awaiting) {
        // This object goes with what is resumed.
        const Begin begin = std::move(begin_);
        begin([this, awaiting](T value) {
            value_ = std::move(value);
            awaiting.resume();
        });
    }
    T await_resume() { return std::move(*value_); }

  private:
    Begin begin_;
    std::optional<T> value_;
};

} // namespace vk
