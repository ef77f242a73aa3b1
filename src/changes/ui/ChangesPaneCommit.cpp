#include "changes/ui/ChangesPaneCommit.h"

#include "changes/ChangesPaneViewModel.h"
#include "changes/ui/CommitIdentityOffer.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"
#include "widgets/OAlert.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace orvel {

ChangesPaneCommit::ChangesPaneCommit(ChangesPaneViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), identity_(new CommitIdentityOffer(model, this)),
      subject_(new QLineEdit(this)), counter_(new QLabel(this)), description_(new QPlainTextEdit(this)),
      amend_(new QCheckBox(this)), push_(new QCheckBox(this)), submit_(new QPushButton(this)) {
    subject_->setObjectName(QStringLiteral("commit-form.subject"));
    counter_->setObjectName(QStringLiteral("commit-form.counter"));
    description_->setObjectName(QStringLiteral("commit-form.description"));
    description_->setTabChangesFocus(true);
    description_->setFixedHeight(subject_->sizeHint().height() * 3);
    amend_->setObjectName(QStringLiteral("commit-form.amend"));
    push_->setObjectName(QStringLiteral("commit-form.commit-and-push"));
    submit_->setObjectName(QStringLiteral("commit-form.submit"));
    submit_->setDefault(true);
    subject_->installEventFilter(this);
    description_->installEventFilter(this);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(identity_, 0, 0, 1, 4);
    layout->addWidget(subject_, 1, 0, 1, 3);
    layout->addWidget(counter_, 1, 3);
    layout->addWidget(description_, 2, 0, 1, 4);
    layout->addWidget(amend_, 3, 0);
    layout->addWidget(push_, 3, 1);
    layout->setColumnStretch(2, 1);
    layout->addWidget(submit_, 3, 3);

    connect(subject_, &QLineEdit::textChanged, &model_, &ChangesPaneViewModel::setCommitSubject);
    connect(description_, &QPlainTextEdit::textChanged, this,
            [this] { model_.setCommitDescription(description_->toPlainText()); });
    connect(amend_, &QCheckBox::toggled, &model_, &ChangesPaneViewModel::setAmend);
    connect(push_, &QCheckBox::toggled, &model_, &ChangesPaneViewModel::setCommitAndPush);
    connect(submit_, &QPushButton::clicked, this, &ChangesPaneCommit::submit);
    connect(&model_, &ChangesPaneViewModel::commitFormChanged, this, &ChangesPaneCommit::showForm);
    connect(&model_, &ChangesPaneViewModel::listsChanged, this, &ChangesPaneCommit::showForm);
    connect(&model_, &ChangesPaneViewModel::repoStateChanged, this, &ChangesPaneCommit::showForm);
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, &ChangesPaneCommit::showForm);
    retranslate();
}

void ChangesPaneCommit::submit() {
    if (model_.canCommit())
        model_.commit();
}

void ChangesPaneCommit::showForm() {
    // The fields follow the model (emptied after a commit) without moving a cursor needlessly.
    if (subject_->text() != model_.commitSubject())
        subject_->setText(model_.commitSubject());
    if (description_->toPlainText() != model_.commitDescription())
        description_->setPlainText(model_.commitDescription());
    // The options hold still while a commit runs; the submit button waits for it too (canCommit).
    amend_->setChecked(model_.isAmend());
    amend_->setEnabled(!model_.isCommitting());
    push_->setChecked(model_.isCommitAndPush());
    push_->setEnabled(model_.canPush() && !model_.isCommitting());
    push_->setToolTip(model_.canPush() ? QString()
                                       : localized("Push is disabled during merge/rebase/cherry-pick"));

    // The counter only informs: a longer subject is allowed, and shows in the theme's warning colour.
    const auto length = model_.commitSubject().length();
    counter_->setText(QStringLiteral("%1/%2").arg(length).arg(ChangesPaneViewModel::subjectCharacterLimit));
    QPalette palette = counter_->palette();
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    palette.setColor(QPalette::WindowText,
                     length > ChangesPaneViewModel::subjectCharacterLimit ? tokens.del : tokens.fg2);
    counter_->setPalette(palette);
    counter_->setAccessibleName(localized("%1 of %2 characters", static_cast<int>(length),
                                          ChangesPaneViewModel::subjectCharacterLimit));

    submit_->setText(model_.commitButtonTitle());
    submit_->setAccessibleName(model_.commitButtonTitle());
    submit_->setEnabled(model_.canCommit());
    identity_->showState();
    showQuestion();
}

void ChangesPaneCommit::showQuestion() {
    if (!model_.pendingAmendPushConfirmation()) {
        // Answered elsewhere (a closing tab): the box goes without answering again.
        if (question_)
            question_->close();
        return;
    }
    if (question_)
        return;
    QPointer<ChangesPaneViewModel> guard(&model_);
    question_ = showAlert(
        this, QMessageBox::Warning, localized("Force Push Required"),
        localized(
            "The commit you're amending was already pushed. Pushing will require a force push, which can "
            "discard a colleague's work. Continue?"),
        {{localized("Continue"), QMessageBox::AcceptRole}, {localized("Cancel"), QMessageBox::RejectRole}}, 1,
        [guard](int chosen) {
            if (!guard || !guard->pendingAmendPushConfirmation())
                return;
            if (chosen == 0)
                guard->confirmAmendPush();
            else
                guard->cancelAmendPush();
        });
    question_->setObjectName(QStringLiteral("commit-form.force-push-question"));
}

bool ChangesPaneCommit::eventFilter(QObject* watched, QEvent* event) {
    // Ctrl+Enter commits from either field.
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
            key->modifiers().testFlag(Qt::ControlModifier)) {
            submit();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ChangesPaneCommit::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        showForm();
}

void ChangesPaneCommit::retranslate() {
    subject_->setPlaceholderText(localized("Commit subject"));
    subject_->setAccessibleName(localized("Commit subject"));
    description_->setPlaceholderText(localized("Description (optional)"));
    description_->setAccessibleName(localized("Description"));
    amend_->setText(localized("Amend"));
    push_->setText(localized("Commit and Push"));
    showForm();
}

} // namespace orvel
