#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <thread>
#include <utility>

namespace brindlet {

/// Keeps one observer subscribed for as long as it lives; moving hands the subscription on. It may
/// outlive the observable.
class Subscription {
  public:
    Subscription() = default;
    Subscription(Subscription&& other) noexcept = default;
    Subscription& operator=(Subscription&& other) noexcept {
        if (this != &other) {
            cancel();
            hub_ = std::move(other.hub_);
            key_ = other.key_;
        }
        return *this;
    }
    ~Subscription() { cancel(); }
    void cancel();

  private:
    friend class Observable;
    using Observers = std::map<std::uint64_t, std::function<void()>>;
    Subscription(std::weak_ptr<Observers> hub, std::uint64_t key)
        : hub_(std::move(hub)), key_(key) {}

    std::weak_ptr<Observers> hub_;
    std::uint64_t key_ = 0;
};

/// Something that tells its observers just BEFORE it changes, on every assignment, equal or not, in
/// the order of subscribing. Observers that subscribe while being told hear of the next change, and
/// those cancelled then are told no more. An observer never reads inside the callback; it notes
/// that something is about to change and looks on the next turn of the main loop.
///
/// It belongs to the thread that made it (the main thread, in the program); debug builds assert it.
class Observable {
  public:
    Observable() = default;
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;

    [[nodiscard]] Subscription subscribe(std::function<void()> observer);
    /// Called by Published before each assignment, and by an owner that passes a child's change on.
    void willChange() const;

  protected:
    ~Observable() = default;
    void assertOwner() const;

  private:
    std::shared_ptr<Subscription::Observers> observers_ =
        std::make_shared<Subscription::Observers>();
    std::uint64_t nextKey_ = 0;
    std::thread::id owner_ = std::this_thread::get_id();
};

/// A field of an Observable that announces each assignment before it happens and counts it after.
/// The revision lets a screen know at once whether it must act.
template <class T>
class Published {
  public:
    explicit Published(const Observable& owner, T value = {})
        : owner_(owner), value_(std::move(value)) {}
    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    const T& get() const { return value_; }
    const T& operator*() const { return value_; }
    const T* operator->() const { return &value_; }
    std::uint64_t revision() const { return revision_; }

    void set(T value) {
        owner_.willChange();
        value_ = std::move(value);
        ++revision_;
    }
    /// Edits in place; counts as one assignment.
    template <class F>
    void mutate(F&& edit) {
        owner_.willChange();
        edit(value_);
        ++revision_;
    }

  private:
    const Observable& owner_;
    T value_;
    std::uint64_t revision_ = 0;
};

}  // namespace brindlet
