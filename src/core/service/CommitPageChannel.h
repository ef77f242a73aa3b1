// Hands the pages of a long `git log` from the worker thread that reads it to the GUI thread that
// lays them out, while git still prints. The reader waits while a few pages are waiting, so that a
// slow consumer bounds the memory; closing the channel makes the reader's next page throw, which
// ends git's run.
#pragma once

#include "core/records/GraphCommit.h"

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <vector>

namespace orvel {

class CommitPageChannel {
  public:
    // `wake` runs on the reader's thread after a page arrived in an empty channel; it must only
    // post to the consumer's thread. It is never called once close() returned.
    explicit CommitPageChannel(std::function<void()> wake, std::size_t pageSize = 1000, std::size_t backlog = 4);

    // How many commits the reader puts in a page.
    std::size_t pageSize() const { return pageSize_; }

    // Reader's side: waits while `backlog` pages wait; throws OperationCancelled once closed.
    void push(std::vector<GraphCommit> page);

    // Consumer's side.
    std::optional<std::vector<GraphCommit>> take();
    bool hasPages() const;
    void close();

  private:
    mutable std::mutex mutex_;
    std::condition_variable taken_;
    std::deque<std::vector<GraphCommit>> pages_;
    std::function<void()> wake_;
    std::size_t pageSize_;
    std::size_t backlog_;
    bool closed_ = false;
};

} // namespace orvel
