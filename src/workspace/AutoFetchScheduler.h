// The fetch that runs by itself while a repository is open: every chosen interval it fetches the
// active repository's remote, so that ahead and behind counts and remote branches stay current.
// After three failures in a row it stops and says so once; a manual fetch that works resumes it.
#pragma once

#include <QObject>

#include <QCoro/QCoroTask>

#include <chrono>
#include <functional>

namespace orvel {

class AppViewModel;
class UserDefaults;

class AutoFetchScheduler final : public QObject {
    Q_OBJECT

  public:
    static constexpr int maxConsecutiveFailures = 3;
    // Calls `wake` once after `delay`. The program uses a timer; tests call it when they choose.
    using WakeTimer = std::function<void(std::chrono::seconds delay, std::function<void()> wake)>;

    AutoFetchScheduler(AppViewModel& app, UserDefaults& defaults, QObject* parent = nullptr);

    // Restarts the loop: its first fetch comes one interval from now. The failure count and the
    // backed-off state stay as they are.
    void start();
    // Ends the loop; a fetch under way runs on and is still counted.
    void stop();
    // After a manual fetch that worked: when the loop had given up, it starts again with a notice.
    void resume();
    // The interval setting changed: a running loop starts over, so that it sleeps the new interval
    // from now instead of finishing the old one first.
    void intervalChanged();

    bool isRunning() const { return running_; }
    bool isBackedOff() const { return backedOff_; }
    int consecutiveFailures() const { return consecutiveFailures_; }

    void setWakeTimer(WakeTimer timer) { wakeTimer_ = std::move(timer); }

  private:
    // Reads the interval anew and sleeps for it; a switched-off fetch looks again each minute.
    void sleep(int loop);
    void wake(int loop);
    QCoro::Task<void> fetchRound(int loop);

    AppViewModel& app_;
    UserDefaults& defaults_;
    WakeTimer wakeTimer_;
    int loop_ = 0;
    bool running_ = false;
    bool backedOff_ = false;
    int consecutiveFailures_ = 0;
};

} // namespace orvel
