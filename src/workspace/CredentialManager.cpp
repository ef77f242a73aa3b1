#include "workspace/CredentialManager.h"

#include "core/support/Log.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <QSaveFile>
#include <QUuid>

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <coroutine>
#include <cstdint>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace orvel {

// The one-shot channel that carries the user's answer to the waiting showPromptAndWait.
class CredentialManager::ResponseChannel {
  public:
    void answer(QString text) {
        if (answered_)
            return;
        answered_ = true;
        value_ = std::move(text);
        if (auto waiter = std::exchange(waiter_, {}))
            waiter.resume();
    }

    struct Awaiter {
        std::shared_ptr<ResponseChannel> channel;
        bool await_ready() const noexcept { return channel->answered_; }
        void await_suspend(std::coroutine_handle<> handle) noexcept { channel->waiter_ = handle; }
        QString await_resume() const { return channel->value_; }
    };

  private:
    bool answered_ = false;
    QString value_;
    std::coroutine_handle<> waiter_;
};

// What the listener thread shares with the manager. The thread holds it too, so that nothing it
// uses goes away before it ends. Each wait of the listener also watches `stopSignal`, so that
// stop() only has to signal it and never waits on the interface thread.
struct CredentialManager::ListenerState {
    std::string promptPipe;
    std::string responsePipe;
    QString directory;
    int stopSignal = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);

    std::mutex mutex;
    std::condition_variable answered;
    bool cancelled = false;
    std::optional<QString> answer;

    ListenerState() = default;
    ListenerState(const ListenerState&) = delete;
    ListenerState& operator=(const ListenerState&) = delete;
    ~ListenerState() { ::close(stopSignal); }

    bool isCancelled() {
        std::lock_guard lock(mutex);
        return cancelled;
    }

    void cancel() {
        {
            std::lock_guard lock(mutex);
            cancelled = true;
        }
        answered.notify_all();
        const std::uint64_t one = 1;
        [[maybe_unused]] const ssize_t written = ::write(stopSignal, &one, sizeof one);
    }

    void give(QString text) {
        {
            std::lock_guard lock(mutex);
            answer = std::move(text);
        }
        answered.notify_all();
    }

    // The user's answer; nothing once the listener is stopped.
    QString awaitAnswer() {
        std::unique_lock lock(mutex);
        answered.wait(lock, [this] { return answer || cancelled; });
        return std::exchange(answer, std::nullopt).value_or(QString());
    }

    // Waits until a script has written a question and closed its end. Answers nothing when the
    // listener is stopped before a question came, or when the pipe can't be opened. The pipe is
    // opened without blocking, so that the wait can watch the stop signal too. On a stop the pipe
    // is removed while it is still open: no script can open it any more, and one that has opened
    // it already still gets through instead of blocking for ever on a pipe that nobody reads.
    std::optional<QByteArray> nextQuestion() const {
        const int fd = ::open(promptPipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0)
            return std::nullopt;
        QByteArray bytes;
        bool stopped = false;
        bool ended = false;
        while (!ended) {
            pollfd fds[2] = {{fd, POLLIN, 0}, {stopSignal, POLLIN, 0}};
            const int ready = ::poll(fds, stopped ? 1 : 2, stopped ? 1000 : -1);
            if (ready < 0 && errno == EINTR)
                continue;
            if (ready <= 0)
                break;
            if (!stopped && fds[1].revents != 0) {
                ::unlink(promptPipe.c_str());
                stopped = true;
            }
            if (stopped || fds[0].revents != 0)
                ended = readAvailable(fd, bytes);
        }
        ::close(fd);
        if (!ended || (stopped && bytes.isEmpty()))
            return std::nullopt;
        return bytes;
    }

    // Appends what the pipe holds; answers true once the writer has closed its end (or the pipe
    // failed), false when more may come.
    static bool readAvailable(int fd, QByteArray& bytes) {
        char buffer[4096];
        for (;;) {
            const ssize_t count = ::read(fd, buffer, sizeof buffer);
            if (count > 0)
                bytes.append(buffer, count);
            else if (count == 0)
                return true;
            else if (errno != EINTR)
                return errno != EAGAIN;
        }
    }

    // Hands the answer to the script, which opens its end right after writing the question. A
    // script that died in between never does, so the wait for it is short.
    void writeAnswer(const QByteArray& bytes) const {
        using namespace std::chrono_literals;
        const auto deadline = std::chrono::steady_clock::now() + 1s;
        int fd = -1;
        while ((fd = ::open(responsePipe.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC)) < 0) {
            if (errno != ENXIO || std::chrono::steady_clock::now() > deadline)
                return;
            std::this_thread::sleep_for(5ms);
        }
        ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
        qsizetype written = 0;
        while (written < bytes.size()) {
            const ssize_t count = ::write(fd, bytes.constData() + written, bytes.size() - written);
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                break;
            written += count;
        }
        ::close(fd);
    }
};

namespace {

// The text of a path inside double quotes of a shell script.
QString doubleQuoted(const QString& text) {
    QString escaped;
    for (const QChar c : text) {
        if (c == u'\\' || c == u'"' || c == u'$' || c == u'`')
            escaped += u'\\';
        escaped += c;
    }
    return escaped;
}

} // namespace

CredentialManager::CredentialManager(QObject* parent)
    : QObject(parent), sessionID_(QUuid::createUuid().toString(QUuid::WithoutBraces)) {}

CredentialManager::~CredentialManager() {
    if (listener_)
        stop();
    // Every wait of the listener ends on the stop signal, so this join is short.
    if (listenerThread_.joinable())
        listenerThread_.join();
}

void CredentialManager::setUserInput(const QString& text) {
    if (userInput_ == text)
        return;
    userInput_ = text;
    emit userInputChanged(userInput_);
}

QString CredentialManager::baseDirectory() const {
    return QDir::tempPath() + "/orvel-askpass-" + sessionID_;
}
QString CredentialManager::promptPipePath() const {
    return baseDirectory() + "/prompt";
}
QString CredentialManager::responsePipePath() const {
    return baseDirectory() + "/response";
}
QString CredentialManager::scriptPath() const {
    return baseDirectory() + "/orvel-askpass.sh";
}

QByteArray CredentialManager::askpassScript(const QString& promptPipe, const QString& responsePipe) {
    const QString script =
        QStringLiteral("#!/bin/bash\n"
                       "# Orvel askpass helper — communicates with the main app via named pipes\n"
                       "PROMPT=\"$1\"\n"
                       "PROMPT_PIPE=\"%1\"\n"
                       "RESPONSE_PIPE=\"%2\"\n"
                       "\n"
                       "# Send the prompt to the main app\n"
                       "echo \"$PROMPT\" > \"$PROMPT_PIPE\"\n"
                       "\n"
                       "# Wait for and read the response\n"
                       "RESPONSE=$(cat \"$RESPONSE_PIPE\")\n"
                       "echo \"$RESPONSE\"\n")
            .arg(doubleQuoted(promptPipe), doubleQuoted(responsePipe));
    return script.toUtf8();
}

void CredentialManager::start() {
    if (listenerThread_.joinable())
        return;
    qCDebug(lcAuth, "start: initializing credential manager");
    const QByteArray base = QFile::encodeName(baseDirectory());
    const QByteArray promptPipe = QFile::encodeName(promptPipePath());
    const QByteArray responsePipe = QFile::encodeName(responsePipePath());
    qCDebug(lcAuth, "setupPipes: creating pipes in %s", base.constData());
    // Failures here aren't reported: git then fails with its own authentication error.
    QDir().mkpath(QDir::tempPath());
    ::mkdir(base.constData(), 0700);
    ::chmod(base.constData(), 0700);
    for (const QByteArray& pipe : {promptPipe, responsePipe}) {
        ::unlink(pipe.constData());
        ::mkfifo(pipe.constData(), 0600);
        ::chmod(pipe.constData(), 0600);
    }

    QSaveFile script(scriptPath());
    if (script.open(QIODevice::WriteOnly)) {
        script.write(askpassScript(promptPipePath(), responsePipePath()));
        if (script.commit()) {
            ::chmod(QFile::encodeName(scriptPath()).constData(), 0700);
            askpassScriptPath_ = scriptPath();
            qCDebug(lcAuth, "writeAskpassScript: script at %s", qUtf8Printable(askpassScriptPath_));
        }
    }

    listener_ = std::make_shared<ListenerState>();
    listener_->promptPipe = promptPipe.toStdString();
    listener_->responsePipe = responsePipe.toStdString();
    listener_->directory = baseDirectory();
    listenerThread_ = std::thread(listen, listener_, QPointer<CredentialManager>(this));
    qCDebug(lcAuth, "start: credential manager ready");
}

void CredentialManager::stop() {
    qCDebug(lcAuth, "stop: shutting down credential manager");
    const std::shared_ptr<ListenerState> listener = std::exchange(listener_, nullptr);
    if (listener) {
        listener->cancel();
        qCDebug(lcAuth, "stop: kicked blocked prompt-pipe reader");
    }
    if (responseContinuation_) {
        qCDebug(lcAuth, "stop: resuming pending continuation with empty string (prompt was in-flight)");
        // The question is over, so the dialog goes with it.
        clearPrompt();
        answerPending(QString());
    }
    // A running listener removes the pipes and the directory itself once it has answered the
    // script it may be serving, so that the script does not wait for ever on a vanished pipe.
    if (!listenerThread_.joinable())
        QDir(baseDirectory()).removeRecursively();
}

void CredentialManager::submitCredential() {
    const QString input = userInput_;
    qCDebug(lcAuth, "submitCredential: sending response (length=%ld)", static_cast<long>(input.size()));
    consecutiveCancels_ = 0;
    clearPrompt();
    answerPending(input);
}

void CredentialManager::cancelCredential() {
    qCDebug(lcAuth, "cancelCredential: user cancelled prompt");
    ++consecutiveCancels_;
    clearPrompt();
    if (consecutiveCancels_ >= 3) {
        qCDebug(lcAuth, "cancelCredential: 3 consecutive cancels — stopping credential listener");
        answerPending(QString());
        stop();
        return;
    }
    answerPending(QString());
}

QCoro::Task<QString> CredentialManager::showPromptAndWait(QString message) {
    qCDebug(lcAuth, "showPromptAndWait: showing credential prompt");
    if (responseContinuation_) {
        qCDebug(lcAuth, "showPromptAndWait: prior continuation still pending, resuming with empty string");
        answerPending(QString());
    }
    setPromptMessage(message);
    setUserInput(QString());
    setShowingPrompt(true);
    auto channel = std::make_shared<ResponseChannel>();
    responseContinuation_ = channel;
    QString answer = co_await ResponseChannel::Awaiter{channel};
    co_return answer;
}

void CredentialManager::setShowingPrompt(bool showing) {
    if (isShowingPrompt_ == showing)
        return;
    isShowingPrompt_ = showing;
    emit isShowingPromptChanged(showing);
}

void CredentialManager::setPromptMessage(const QString& message) {
    if (promptMessage_ == message)
        return;
    promptMessage_ = message;
    emit promptMessageChanged(promptMessage_);
}

void CredentialManager::clearPrompt() {
    setShowingPrompt(false);
    setUserInput(QString());
    setPromptMessage(QString());
}

void CredentialManager::answerPending(const QString& answer) {
    // Taken out first: the answer resumes the waiting coroutine, which may ask again at once.
    if (const auto channel = std::exchange(responseContinuation_, nullptr))
        channel->answer(answer);
}

void CredentialManager::listen(std::shared_ptr<ListenerState> state, QPointer<CredentialManager> manager) {
    while (const std::optional<QByteArray> read = state->nextQuestion()) {
        const QString question = QString::fromUtf8(*read).trimmed();
        if (state->isCancelled()) {
            // A script that asked in the moment of stopping waits for an answer: it gets none.
            if (!question.isEmpty())
                state->writeAnswer("\n");
            break;
        }
        if (question.isEmpty())
            continue;
        qCDebug(lcAuth, "listener: credential request received");
        // The manager is looked at only on the interface thread, where it lives and dies.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [manager, question, state] {
                if (!manager) {
                    state->give(QString());
                    return;
                }
                QCoro::connect(manager->showPromptAndWait(question), manager.data(),
                               [state](QString text) { state->give(std::move(text)); });
            },
            Qt::QueuedConnection);
        const QString text = state->awaitAnswer();
        qCDebug(lcAuth, "listener: credential response sent");
        state->writeAnswer(text.toUtf8() + '\n');
    }
    // Gone at once, so that a script git starts after the last answer finds no pipe to wait on
    // and git fails on its own.
    ::unlink(state->promptPipe.c_str());
    ::unlink(state->responsePipe.c_str());
    QDir(state->directory).removeRecursively();
}

} // namespace orvel
