#include "workspace/CredentialManager.h"

#include "core/support/Log.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPointer>
#include <QSaveFile>
#include <QUuid>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <coroutine>
#include <fcntl.h>
#include <future>
#include <optional>
#include <string>
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

// What the listener thread shares with the manager. The thread holds it too, so that a thread
// still blocked when the manager goes never reaches freed memory.
struct CredentialManager::ListenerState {
    std::string promptPipe;
    std::string responsePipe;
    std::atomic<bool> cancelled{false};
    std::promise<void> finished;
    std::thread thread;

    ~ListenerState() {
        if (thread.joinable())
            thread.detach();
    }
};

namespace {

using namespace std::chrono_literals;

// How long stop() waits for the listener to leave a blocking call before leaving it behind.
constexpr auto listenerStopBudget = 2s;

// Reads one question: blocks in open() until a writer comes, then reads to the end of the file.
// Answers nothing when the pipe can't be opened.
std::optional<QByteArray> readQuestion(const std::string& promptPipe) {
    const int fd = ::open(promptPipe.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return std::nullopt;
    QByteArray bytes;
    char buffer[4096];
    for (;;) {
        const ssize_t count = ::read(fd, buffer, sizeof buffer);
        if (count > 0)
            bytes.append(buffer, count);
        else if (count == 0 || errno != EINTR)
            break;
    }
    ::close(fd);
    return bytes;
}

// Blocks in open() until the script reads, then writes the whole answer.
void writeAnswer(const std::string& responsePipe, const QByteArray& bytes) {
    const int fd = ::open(responsePipe.c_str(), O_WRONLY | O_CLOEXEC);
    if (fd < 0)
        return;
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

// Waits for the answer that the GUI thread gives; a stop in the meantime answers with nothing.
QString awaitAnswer(std::future<QString> answer, const std::atomic<bool>& cancelled) {
    while (answer.wait_for(50ms) != std::future_status::ready) {
        if (cancelled)
            return {};
    }
    return answer.get();
}

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
    if (listener_)
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
    listener_->thread = std::thread(listen, listener_, QPointer<CredentialManager>(this));
    qCDebug(lcAuth, "start: credential manager ready");
}

void CredentialManager::stop() {
    qCDebug(lcAuth, "stop: shutting down credential manager");
    const std::shared_ptr<ListenerState> listener = std::exchange(listener_, nullptr);
    if (listener)
        listener->cancelled = true;
    if (responseContinuation_) {
        qCDebug(lcAuth, "stop: resuming pending continuation with empty string (prompt was in-flight)");
        // The question is over, so the dialog goes with it.
        clearPrompt();
        answerPending(QString());
    }
    std::future<void> finished = listener ? listener->finished.get_future() : std::future<void>();
    if (!askpassScriptPath_.isEmpty() || listener) {
        const QByteArray promptPipe = QFile::encodeName(promptPipePath());
        // The listener may be blocked opening the prompt pipe: a writer lets it through to see
        // that it is cancelled. It may also be just about to open it, so the kick repeats until
        // the listener has ended or the budget is spent. The pipes go only after that, so that
        // an answer on its way still reaches the script.
        bool kicked = false;
        const auto deadline = std::chrono::steady_clock::now() + listenerStopBudget;
        do {
            const int fd = ::open(promptPipe.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
            if (fd >= 0) {
                [[maybe_unused]] const ssize_t written = ::write(fd, "\n", 1);
                ::close(fd);
                if (!kicked)
                    qCDebug(lcAuth, "stop: kicked blocked prompt-pipe reader");
                kicked = true;
            }
        } while (finished.valid() && finished.wait_for(20ms) != std::future_status::ready &&
                 std::chrono::steady_clock::now() < deadline);
        ::unlink(promptPipe.constData());
        ::unlink(QFile::encodeName(responsePipePath()).constData());
    }
    if (listener && listener->thread.joinable()) {
        // A listener still blocked (a script that died before reading its answer) is left behind.
        if (finished.valid() && finished.wait_for(0s) == std::future_status::ready)
            listener->thread.join();
        else
            listener->thread.detach();
    }
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
        // Cancelled before the answer goes out, so that the listener ends right after writing it
        // instead of waiting for one more question.
        if (listener_)
            listener_->cancelled = true;
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
    while (!state->cancelled) {
        const std::optional<QByteArray> read = readQuestion(state->promptPipe);
        if (!read) {
            qCDebug(lcAuth, "listener: prompt pipe unavailable, stopping");
            break;
        }
        const QString question = QString::fromUtf8(*read).trimmed();
        if (state->cancelled) {
            // A script that asked in the moment of stopping waits for an answer: it gets none.
            if (!question.isEmpty())
                writeAnswer(state->responsePipe, "\n");
            break;
        }
        if (question.isEmpty())
            continue;
        qCDebug(lcAuth, "listener: credential request received");
        auto answered = std::make_shared<std::promise<QString>>();
        std::future<QString> answer = answered->get_future();
        // The manager is looked at only on the GUI thread, where it lives and dies.
        QMetaObject::invokeMethod(
            QCoreApplication::instance(),
            [manager, question, answered] {
                if (!manager) {
                    answered->set_value(QString());
                    return;
                }
                QCoro::connect(manager->showPromptAndWait(question), manager.data(),
                               [answered](QString text) { answered->set_value(std::move(text)); });
            },
            Qt::QueuedConnection);
        const QString text = awaitAnswer(std::move(answer), state->cancelled);
        qCDebug(lcAuth, "listener: credential response sent");
        writeAnswer(state->responsePipe, text.toUtf8() + '\n');
    }
    // Gone at once, so that a script git starts after the last answer finds no pipe to wait on
    // and git fails on its own.
    ::unlink(state->promptPipe.c_str());
    ::unlink(state->responsePipe.c_str());
    state->finished.set_value();
}

} // namespace orvel
