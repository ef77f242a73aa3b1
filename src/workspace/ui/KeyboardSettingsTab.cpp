#include "workspace/ui/KeyboardSettingsTab.h"

#include "settings/LocalizationManager.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

KeyboardSettingsTab::KeyboardSettingsTab(QWidget* parent)
    : QWidget(parent), resetAll_(new QPushButton(this)) {
    setObjectName(QStringLiteral("keybinding.tab"));
    // Eight fixed commands: a form, not a list that grows.
    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    int line = 0;
    for (KeyBindingID id : allKeyBindingIDs) {
        const QString stem = QStringLiteral("keybinding.row.") + rawValue(id);
        Row row{new QLabel(this), new QLabel(this), new QPushButton(this), new QPushButton(this)};
        row.display->setObjectName(stem + QStringLiteral(".display"));
        row.display->setMinimumWidth(
            row.display->fontMetrics().horizontalAdvance(QStringLiteral("Ctrl+Shift+Alt+M")));
        row.record->setObjectName(stem + QStringLiteral(".record"));
        row.reset->setObjectName(stem + QStringLiteral(".reset"));
        row.label->setBuddy(row.record);
        // Return in the settings window must not reset or start recording a row.
        row.record->setAutoDefault(false);
        row.reset->setAutoDefault(false);
        grid->addWidget(row.label, line, 0);
        grid->addWidget(row.display, line, 1);
        grid->addWidget(row.record, line, 2);
        grid->addWidget(row.reset, line, 3);
        connect(row.record, &QPushButton::clicked, this, [this, id] { toggleRecording(id); });
        connect(row.reset, &QPushButton::clicked, this, [id] { KeybindingStore::shared().reset(id); });
        rows_.emplace(id, row);
        ++line;
    }
    resetAll_->setObjectName(QStringLiteral("keybinding.reset-all"));
    resetAll_->setAutoDefault(false);
    connect(resetAll_, &QPushButton::clicked, this, [] { KeybindingStore::shared().resetAll(); });
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addWidget(resetAll_, 0, Qt::AlignRight);
    layout->addStretch(1);
    connect(&KeybindingStore::shared(), &KeybindingStore::bindingsChanged, this,
            &KeyboardSettingsTab::showBindings);
    showBindings();
}

KeyboardSettingsTab::~KeyboardSettingsTab() {
    stopRecording();
}

void KeyboardSettingsTab::toggleRecording(KeyBindingID id) {
    const bool wasThisRow = recordingID_ == id;
    stopRecording();
    if (wasThisRow)
        return;
    recordingID_ = id;
    qApp->installEventFilter(this);
    showBindings();
}

void KeyboardSettingsTab::stopRecording() {
    if (!recordingID_)
        return;
    recordingID_.reset();
    qApp->removeEventFilter(this);
    showBindings();
}

bool KeyboardSettingsTab::eventFilter(QObject* watched, QEvent* event) {
    if (!recordingID_ || (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride))
        return QWidget::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Escape) {
        // Swallowed, so that it doesn't close the window too.
        if (event->type() == QEvent::KeyPress)
            stopRecording();
        event->accept();
        return true;
    }
    const std::optional<KeyBinding> binding = KeyBinding::fromKeyPress(key->key(), key->modifiers());
    if (!binding)
        return QWidget::eventFilter(watched, event);
    // Accepting the override keeps the menus from running the shortcut; the press that follows
    // makes the binding.
    event->accept();
    if (event->type() == QEvent::KeyPress) {
        const KeyBindingID id = *recordingID_;
        stopRecording();
        KeybindingStore::shared().rebind(id, *binding);
    }
    return true;
}

void KeyboardSettingsTab::showBindings() {
    const KeybindingStore& store = KeybindingStore::shared();
    for (const auto& [id, row] : rows_) {
        const bool recording = recordingID_ == id;
        row.label->setText(label(id));
        row.display->setText(recording ? localized("Press keys…")
                                       : store.binding(id).keySequence().toString(QKeySequence::NativeText));
        row.record->setText(recording ? localized("Cancel") : localized("Record"));
        row.reset->setText(localized("Reset"));
        row.record->setAccessibleName(localized("Record a shortcut for %1", label(id)));
        row.reset->setAccessibleName(localized("Reset the shortcut of %1", label(id)));
    }
    resetAll_->setText(localized("Reset All"));
}

void KeyboardSettingsTab::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        showBindings();
    QWidget::changeEvent(event);
}

void KeyboardSettingsTab::hideEvent(QHideEvent* event) {
    stopRecording();
    QWidget::hideEvent(event);
}

} // namespace orvel
