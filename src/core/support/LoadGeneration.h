// The guard every view model's asynchronous load uses. A coroutine can outlive its model, and a
// slow answer can arrive after a newer load has started: after each co_await a load goes on only
// while its ticket is current, that is, while the model is alive and no later load has begun.
// Beginning a load also cancels the previous one's stop token, so its queued git work is dropped.
#pragma once

#include <QObject>
#include <QPointer>

#include <stop_token>

namespace orvel {

class LoadGeneration;

class LoadTicket {
  public:
    // The model is alive and no later load (or cancel) has come since this one began.
    bool isCurrent() const;
    // For the service operations of this load.
    std::stop_token stopToken() const { return stop_; }
    int generation() const { return generation_; }

  private:
    friend class LoadGeneration;
    LoadTicket(QObject* owner, const LoadGeneration* counter, int generation, std::stop_token stop)
        : owner_(owner), counter_(counter), generation_(generation), stop_(std::move(stop)) {}

    QPointer<QObject> owner_;
    const LoadGeneration* counter_;
    int generation_;
    std::stop_token stop_;
};

// A member of the view model (one per kind of load); `owner` is the model itself.
class LoadGeneration {
  public:
    LoadGeneration() = default;
    LoadGeneration(const LoadGeneration&) = delete;
    LoadGeneration& operator=(const LoadGeneration&) = delete;
    ~LoadGeneration() { stop_.request_stop(); }

    LoadTicket begin(QObject* owner) {
        stop_.request_stop();
        stop_ = std::stop_source();
        return LoadTicket(owner, this, ++value_, stop_.get_token());
    }

    // Makes every ticket stale and stops its queued work, as closing a tab does.
    void cancel() {
        stop_.request_stop();
        ++value_;
    }

    int value() const { return value_; }

  private:
    int value_ = 0;
    std::stop_source stop_;
};

// The owner is checked first: while it lives, so does the counter it holds.
inline bool LoadTicket::isCurrent() const {
    return owner_ && counter_->value() == generation_;
}

} // namespace orvel
