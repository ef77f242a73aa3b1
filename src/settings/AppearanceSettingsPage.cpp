#include "settings/AppearanceSettingsPage.h"

#include "core/queue/BackgroundWork.h"
#include "core/support/Log.h"
#include "settings/ThemeEngine.h"

#include <QPointer>

#include <exception>
#include <optional>
#include <type_traits>

namespace orvel {

namespace {

template <typename Value>
struct Outcome {
    std::optional<Value> value;
    QString failure;
};

// Runs the blocking `block` on the pool; answers its value or the description of its failure,
// logged under `operation`.
template <typename Block>
auto attemptOnPool(const char* operation, Block block) -> QCoro::Task<Outcome<std::invoke_result_t<Block&>>> {
    Outcome<std::invoke_result_t<Block&>> outcome;
    try {
        outcome.value = co_await runOnPool(backgroundPool(), std::move(block));
    } catch (const std::exception& error) {
        qCWarning(lcUi, "op=%s reason=%s", operation, redactForLog(error.what()).c_str());
        outcome.failure = QString::fromStdString(error.what());
    }
    co_return outcome;
}

} // namespace

AppearanceSettingsPage::AppearanceSettingsPage(ThemeEngine& engine, QObject* parent)
    : QObject(parent), engine_(engine) {}

QCoro::Task<void> AppearanceSettingsPage::load() {
    setErrorMessage({});
    engine_.saveSnapshot();
    co_return;
}

QCoro::Task<void> AppearanceSettingsPage::apply() {
    setErrorMessage({});
    engine_.commitTheme();
    co_return;
}

void AppearanceSettingsPage::revert() {
    engine_.revertTheme();
}

QCoro::Task<bool> AppearanceSettingsPage::importTheme(QString filePath) {
    const QPointer<AppearanceSettingsPage> self(this);
    auto outcome =
        co_await attemptOnPool("theme.import", [filePath] { return ThemeEngine::storeThemeFile(filePath); });
    if (!self)
        co_return false;
    if (outcome.value)
        engine_.addExternalTheme(std::move(*outcome.value));
    setErrorMessage(outcome.failure);
    co_return outcome.value.has_value();
}

QCoro::Task<bool> AppearanceSettingsPage::removeTheme(QString id) {
    const QPointer<AppearanceSettingsPage> self(this);
    auto outcome = co_await attemptOnPool("theme.remove", [id] {
        ThemeEngine::deleteThemeFile(id);
        return true;
    });
    if (!self)
        co_return false;
    if (outcome.value)
        engine_.forgetExternalTheme(id);
    setErrorMessage(outcome.failure);
    co_return outcome.value.has_value();
}

void AppearanceSettingsPage::setErrorMessage(const QString& message) {
    if (message == errorMessage_)
        return;
    errorMessage_ = message;
    emit errorMessageChanged();
}

} // namespace orvel
