#include "workspace/ui/RepositoryWindow.h"

#include "workspace/AppViewModel.h"

#include <QLabel>

namespace orvel {

namespace {

QString displayed(const std::optional<std::string>& bytes, const QString& absent) {
    return bytes ? QString::fromUtf8(bytes->data(), static_cast<qsizetype>(bytes->size())) : absent;
}

} // namespace

RepositoryWindow::RepositoryWindow(AppViewModel& model, QWidget* parent)
    : QMainWindow(parent), model_(model), summary_(new QLabel(this)) {
    setObjectName("repository-window");
    setWindowTitle(tr("Orvel"));
    summary_->setObjectName("repository-window.summary");
    summary_->setAlignment(Qt::AlignCenter);
    summary_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    summary_->setMargin(24);
    setCentralWidget(summary_);
    resize(720, 360);
    connect(&model_, &AppViewModel::activeRepositoryChanged, this, &RepositoryWindow::showState);
    connect(&model_, &AppViewModel::openFailed, this, &RepositoryWindow::showState);
    showState();
}

void RepositoryWindow::showState() {
    const auto& repo = model_.activeRepository();
    if (!repo) {
        summary_->setText(model_.lastError().isEmpty() ? tr("No repository open")
                                                       : tr("Could not open the repository:\n%1").arg(model_.lastError()));
        return;
    }
    const QString path = QString::fromUtf8(repo->path.data(), static_cast<qsizetype>(repo->path.size()));
    setWindowTitle(tr("%1 — Orvel").arg(path));
    summary_->setText(tr("Repository: %1\nBranch: %2\nHead: %3\nState: %4")
                          .arg(path, displayed(repo->currentBranch, tr("(detached)")),
                               displayed(repo->headHash, tr("(no commits yet)")),
                               QString::fromLatin1(toString(repo->state))));
}

} // namespace orvel
