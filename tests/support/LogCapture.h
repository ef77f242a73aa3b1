// Collects the debug lines of the "orvel" logging categories, from every thread, while it lives,
// so that tests can check what a tester would read in the log.
#pragma once

#include <QLoggingCategory>
#include <QStringList>

#include <mutex>

namespace orvel::test {

class LogCapture {
  public:
    LogCapture() {
        std::lock_guard lock(mutex());
        lines().clear();
        QLoggingCategory::setFilterRules("orvel.*.debug=true");
        previous_ = qInstallMessageHandler(collect);
    }
    ~LogCapture() {
        qInstallMessageHandler(previous_);
        QLoggingCategory::setFilterRules("");
    }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    bool contains(const QString& line) const {
        std::lock_guard lock(mutex());
        return lines().contains(line);
    }
    QString text() const {
        std::lock_guard lock(mutex());
        return lines().join('\n');
    }

  private:
    static std::mutex& mutex() {
        static std::mutex instance;
        return instance;
    }
    static QStringList& lines() {
        static QStringList instance;
        return instance;
    }
    static void collect(QtMsgType, const QMessageLogContext&, const QString& message) {
        std::lock_guard lock(mutex());
        lines() << message;
    }

    QtMessageHandler previous_;
};

} // namespace orvel::test
