#include "core/service/CommitPageChannel.h"

#include "core/queue/OperationCancelled.h"

#include <algorithm>

namespace orvel {

CommitPageChannel::CommitPageChannel(std::function<void()> wake, std::size_t pageSize, std::size_t backlog)
    : wake_(std::move(wake)), pageSize_(std::max<std::size_t>(pageSize, 1)), backlog_(backlog) {}

void CommitPageChannel::push(std::vector<GraphCommit> page) {
    std::unique_lock lock(mutex_);
    taken_.wait(lock, [this] { return closed_ || pages_.size() < backlog_; });
    if (closed_)
        throw OperationCancelled();
    pages_.push_back(std::move(page));
    // The wake runs under the lock, so that close() cannot return while it posts.
    if (pages_.size() == 1 && wake_)
        wake_();
}

std::optional<std::vector<GraphCommit>> CommitPageChannel::take() {
    std::lock_guard lock(mutex_);
    if (pages_.empty())
        return std::nullopt;
    std::vector<GraphCommit> page = std::move(pages_.front());
    pages_.pop_front();
    taken_.notify_all();
    return page;
}

bool CommitPageChannel::hasPages() const {
    std::lock_guard lock(mutex_);
    return !pages_.empty();
}

void CommitPageChannel::close() {
    std::lock_guard lock(mutex_);
    closed_ = true;
    wake_ = nullptr;
    pages_.clear();
    taken_.notify_all();
}

} // namespace orvel
