// Sets or unsets one environment variable of the test process for a scope and puts the old value
// back.
// Set it while no git command runs: the executor reads the environment when it starts a child.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace orvel::test {

class ScopedEnvironment {
  public:
    // No value unsets the variable.
    ScopedEnvironment(std::string name, const std::optional<std::string>& value) : name_(std::move(name)) {
        if (const char* old = std::getenv(name_.c_str()))
            old_ = old;
        if (value)
            ::setenv(name_.c_str(), value->c_str(), 1);
        else
            ::unsetenv(name_.c_str());
    }
    ~ScopedEnvironment() {
        if (old_)
            ::setenv(name_.c_str(), old_->c_str(), 1);
        else
            ::unsetenv(name_.c_str());
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

  private:
    std::string name_;
    std::optional<std::string> old_;
};

} // namespace orvel::test
