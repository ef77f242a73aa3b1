#include "widgets/OAlert.h"

#include "settings/LocalizationManager.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <algorithm>

namespace orvel {

namespace {
// The width of a message's lines, in average characters, before it wraps.
constexpr int messageColumns = 48;
} // namespace

QMessageBox* showAlert(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& message,
                       std::vector<AlertButton> buttons, int safeIndex, std::function<void(int)> answered) {
    if (buttons.empty())
        buttons.push_back({localized("OK"), QMessageBox::AcceptRole});
    auto* box = new QMessageBox(parent);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setIcon(icon);
    // Names and messages come from the user and from git: never read as markup.
    box->setTextFormat(Qt::PlainText);
    box->setText(title);
    box->setInformativeText(message);
    if (auto* titleLabel = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        QFont bold = titleLabel->font();
        bold.setBold(true);
        titleLabel->setFont(bold);
    }
    if (auto* messageLabel = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"))) {
        messageLabel->setTextFormat(Qt::PlainText);
        // Qt sizes the box by its title and wraps the message to that width: a short title would
        // squeeze a long message into a narrow column, also one that arrives later ("Checking…").
        messageLabel->setMinimumWidth(QFontMetrics(messageLabel->font()).averageCharWidth() * messageColumns);
    }
    std::vector<QPushButton*> added;
    for (const AlertButton& button : buttons)
        added.push_back(box->addButton(button.text, button.role));
    safeIndex = std::clamp(safeIndex, 0, static_cast<int>(added.size()) - 1);
    box->setDefaultButton(added[safeIndex]);
    box->setEscapeButton(added[safeIndex]);
    // The window under the alert is made active again when it closes: the window system need not
    // do it, and until then no key reaches the window's shortcuts (Ctrl+Z for Edit > Undo).
    QPointer<QWidget> window(parent ? parent->window() : nullptr);
    QObject::connect(
        box, &QMessageBox::finished, box, [box, added, safeIndex, window, answered = std::move(answered)] {
            if (window)
                window->activateWindow();
            const auto chosen = std::find(added.begin(), added.end(), box->clickedButton());
            if (answered)
                answered(chosen != added.end() ? static_cast<int>(chosen - added.begin()) : safeIndex);
        });
    box->open();
    return box;
}

QMessageBox* confirm(QWidget* parent, const QString& title, const QString& message, const QString& actionText,
                     bool destructive, std::function<void()> confirmed) {
    return showAlert(parent, QMessageBox::Warning, title, message,
                     {{localized("Cancel"), QMessageBox::RejectRole},
                      {actionText, destructive ? QMessageBox::DestructiveRole : QMessageBox::AcceptRole}},
                     0, [confirmed = std::move(confirmed)](int index) {
                         if (index == 1 && confirmed)
                             confirmed();
                     });
}

} // namespace orvel
