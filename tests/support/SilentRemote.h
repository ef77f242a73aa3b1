// A remote that never answers, without a network: git reaches it through its "ext::" transport,
// whose command reads what git sends and never replies. The command ends by itself once git's end
// of the connection closes, so a killed git leaves nothing behind.
#pragma once

#include <string>

namespace orvel::test {

class SilentRemote {
  public:
    // Writes the command into `directory`; `name` tells the remotes of one test apart.
    SilentRemote(const std::string& directory, const std::string& name);

    // Makes this the remote "origin" of `repo`.
    void addTo(const std::string& repo) const;
    // Whether git has started the command, which it does when a fetch connects; the command makes
    // the file `marker()` then.
    bool reached() const;
    const std::string& marker() const { return marker_; }
    // Whether a process that runs the command is still alive.
    bool running() const;

  private:
    std::string script_;
    std::string marker_;
};

} // namespace orvel::test
