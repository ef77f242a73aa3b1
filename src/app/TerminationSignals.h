// Ends the program through its event loop when the system asks it to (SIGTERM at log-out or from
// a process manager, SIGINT, SIGHUP), so that it ends as a closed window does: the askpass folder
// and every other private file are removed on the way out, not left behind by a killed process.
#pragma once

#include <QObject>

class QSocketNotifier;

namespace orvel {

class TerminationSignals final : public QObject {
    Q_OBJECT

  public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;

  private:
    QSocketNotifier* notifier_ = nullptr;
};

} // namespace orvel
