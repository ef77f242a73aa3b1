// Alerts and confirmations: a window-modal message box opened with open(), never exec(), so no
// nested event loop runs under a coroutine. The title is the bold text, the message the informative
// text below it; the safe button answers Enter and Escape, and a destructive one is marked so.
#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>
#include <vector>

namespace orvel {

struct AlertButton {
    QString text; // already localised
    QMessageBox::ButtonRole role = QMessageBox::AcceptRole;
};

// Opens the alert over `parent`'s window and answers the index of the chosen button through
// `answered`; Escape or closing the window chooses the button at `safeIndex`. With no buttons the
// alert has "OK". The box deletes itself.
QMessageBox* showAlert(QWidget* parent, QMessageBox::Icon icon, const QString& title, const QString& message,
                       std::vector<AlertButton> buttons, int safeIndex, std::function<void(int)> answered);

// Cancel and one action; `confirmed` runs only when the action is chosen. A destructive action
// gets DestructiveRole.
QMessageBox* confirm(QWidget* parent, const QString& title, const QString& message, const QString& actionText,
                     bool destructive, std::function<void()> confirmed);

} // namespace orvel
