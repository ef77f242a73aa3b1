// The bridge between git's askpass program and the user: a small script that git runs writes the
// question into one named pipe and reads the answer from another. A listener thread reads the
// questions, the model shows them one at a time, and the user's answer goes back to the script.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <thread>

namespace orvel {

class CredentialManager final : public QObject {
    Q_OBJECT

  public:
    explicit CredentialManager(QObject* parent = nullptr);
    // Stops the listener and waits for its end, which is prompt: every wait of it watches the stop.
    ~CredentialManager() override;

    bool isShowingPrompt() const { return isShowingPrompt_; }
    const QString& promptMessage() const { return promptMessage_; }
    // What the dialog's field holds; never logged.
    const QString& userInput() const { return userInput_; }
    void setUserInput(const QString& text);
    // Empty until start() has written the script.
    const QString& askpassScriptPath() const { return askpassScriptPath_; }
    const QString& sessionID() const { return sessionID_; }

    // The private directory of this run below the system's temporary directory, and what it holds.
    QString baseDirectory() const;
    QString promptPipePath() const;
    QString responsePipePath() const;
    QString scriptPath() const;

    // Makes the directory, the two pipes and the script, and starts the listener. Runs once.
    void start();
    // Ends the listener without waiting for it: an open question is answered with nothing, and the
    // listener removes the directory and the pipes on its way out (at once when none runs).
    void stop();
    // The dialog's two buttons.
    void submitCredential();
    void cancelCredential();

    // Shows `message` and waits for the user; the empty text means no answer was given.
    QCoro::Task<QString> showPromptAndWait(QString message);

    // The askpass script for the two pipe paths.
    static QByteArray askpassScript(const QString& promptPipe, const QString& responsePipe);

  signals:
    // A question waits (true) or was answered (false): the dialog shows while it is true.
    void isShowingPromptChanged(bool showing);
    void promptMessageChanged(const QString& message);
    void userInputChanged(const QString& text);

  private:
    class ResponseChannel;
    struct ListenerState;

    // The listener thread's loop: one question at a time, each answered before the next is read.
    static void listen(std::shared_ptr<ListenerState> state, QPointer<CredentialManager> manager);

    void setShowingPrompt(bool showing);
    void setPromptMessage(const QString& message);
    void clearPrompt();
    // Answers the open question, if any, with `answer`.
    void answerPending(const QString& answer);

    bool isShowingPrompt_ = false;
    QString promptMessage_;
    QString userInput_;
    QString askpassScriptPath_;
    QString sessionID_;
    std::shared_ptr<ListenerState> listener_;
    std::thread listenerThread_;
    std::shared_ptr<ResponseChannel> responseContinuation_;
    int consecutiveCancels_ = 0;
};

} // namespace orvel
