// Opens folders as tabs, one after another: those the program was started with, those a later
// start hands over and those dropped on the window. An open that started while another runs would
// supersede it. A folder that is no repository gets the same message as one chosen in the Open
// dialog, and the next one opens.
#pragma once

#include <QObject>
#include <QStringList>

#include <QCoro/QCoroTask>

namespace orvel {

class AppViewModel;

// The command line's folders as absolute, clean paths: a running program started elsewhere reads
// them alike, and "repo/" and "repo" name one tab.
QStringList absoluteFolders(const QStringList& arguments, const QString& workingFolder);

class FolderOpener final : public QObject {
    Q_OBJECT

  public:
    explicit FolderOpener(AppViewModel& model, QObject* parent = nullptr);

    void open(const QStringList& folders);

  private:
    QCoro::Task<void> openPending();

    AppViewModel& model_;
    QStringList pending_;
    bool opening_ = false;
};

} // namespace orvel
