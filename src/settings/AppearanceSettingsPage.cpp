#include "settings/AppearanceSettingsPage.h"

#include "core/support/Log.h"
#include "settings/ThemeEngine.h"

#include <exception>
#include <functional>

namespace orvel {

namespace {

// Runs `change` and answers the description of its failure, logged under `operation`, or nothing.
QString failureOf(const char* operation, const std::function<void()>& change) {
    try {
        change();
    } catch (const std::exception& error) {
        qCWarning(lcUi, "op=%s reason=%s", operation, redactForLog(error.what()).c_str());
        return QString::fromStdString(error.what());
    }
    return {};
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

bool AppearanceSettingsPage::importTheme(const QString& filePath) {
    setErrorMessage(failureOf("theme.import", [&] { engine_.importTheme(filePath); }));
    return errorMessage_.isEmpty();
}

bool AppearanceSettingsPage::removeTheme(const QString& id) {
    setErrorMessage(failureOf("theme.remove", [&] { engine_.removeTheme(id); }));
    return errorMessage_.isEmpty();
}

void AppearanceSettingsPage::setErrorMessage(const QString& message) {
    if (message == errorMessage_)
        return;
    errorMessage_ = message;
    emit errorMessageChanged();
}

} // namespace orvel
