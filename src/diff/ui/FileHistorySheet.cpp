#include "diff/ui/FileHistorySheet.h"

#include "settings/DisplayLocale.h"
#include "settings/LocalizationManager.h"

#include <QDateTime>
#include <QFontDatabase>
#include <QLocale>
#include <QStandardItemModel>

namespace orvel {

FileHistorySheet::FileHistorySheet(RepoEntry repo, std::string path,
                                   std::shared_ptr<GitServiceProtocol> service, QWidget* parent)
    : FileSheet(FileSheetViewModel::Kind::history, std::move(repo), std::move(path), std::move(service),
                parent) {
    setObjectName(QStringLiteral("history-sheet"));
    start();
}

QStringList FileHistorySheet::columns() const {
    return {localized("Commit"), localized("Subject"), localized("Author"), localized("Date")};
}

QString FileHistorySheet::caption() const {
    return localized("History: %1", QString::fromUtf8(model().path()));
}

QString FileHistorySheet::countLine() const {
    return localized("%1 commits", QString::number(model().historyEntries().size()));
}

QString FileHistorySheet::emptyText() const {
    return localized("No history found");
}

void FileHistorySheet::fill(QStandardItemModel& table) const {
    const QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (const CommitEntry& entry : model().historyEntries()) {
        QList<QStandardItem*> row{
            new QStandardItem(QString::fromUtf8(entry.abbreviatedHash)),
            new QStandardItem(QString::fromUtf8(entry.subject)),
            new QStandardItem(QString::fromUtf8(entry.authorName)),
            new QStandardItem(displayLocale().toString(
                QDateTime::fromSecsSinceEpoch(entry.authorDate.time_since_epoch().count()),
                QLocale::ShortFormat))};
        row[0]->setFont(mono);
        table.appendRow(row);
    }
}

} // namespace orvel
