// The window's face when no repository is open: the recent repositories on the left, and on the
// right either the three ways in (open, clone, initialize) or the preview of the selected recent.
// Folders dropped on it reach the window, which opens them.
#pragma once

#include <QWidget>

class QLabel;
class QListView;
class QStackedWidget;

namespace orvel {

class OEmptyState;
class OInlineBanner;
class RecentRepositoriesModel;
class RepositoryPreview;
class WelcomeCard;
class WelcomeViewModel;

class WelcomeView final : public QWidget {
    Q_OBJECT

  public:
    explicit WelcomeView(WelcomeViewModel& model, QWidget* parent = nullptr);

    // The two ways in that make a new repository; the window's File menu offers them too.
    void showCloneSheet();
    void showInitSheet();

  signals:
    void openRepositoryRequested(const QString& path);

  protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void retranslate();
    void showRecents();
    void showSelection();
    void showNotice();
    void selectRow(const QModelIndex& index);
    void showRecentMenu(const QPoint& position);
    void browseForRepository();

    WelcomeViewModel& model_;
    RecentRepositoriesModel* recentsModel_;
    QLabel* recentsTitle_;
    QStackedWidget* recentsStack_;
    QListView* recents_;
    OEmptyState* recentsEmpty_;
    OInlineBanner* notice_;
    QStackedWidget* detailStack_;
    QWidget* detail_;
    QLabel* title_;
    QLabel* subtitle_;
    WelcomeCard* openCard_;
    WelcomeCard* cloneCard_;
    WelcomeCard* initCard_;
    QLabel* dropHint_;
    RepositoryPreview* preview_;
};

} // namespace orvel
