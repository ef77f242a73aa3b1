#include "diff/ui/BlameSheet.h"

#include "settings/DisplayLocale.h"
#include "settings/LocalizationManager.h"

#include <QDateTime>
#include <QFontDatabase>
#include <QLocale>
#include <QStandardItemModel>

namespace orvel {

BlameSheet::BlameSheet(RepoEntry repo, std::string path, std::shared_ptr<GitServiceProtocol> service,
                       QWidget* parent)
    : FileSheet(FileSheetViewModel::Kind::blame, std::move(repo), std::move(path), std::move(service),
                parent) {
    setObjectName(QStringLiteral("blame-sheet"));
    start();
}

QStringList BlameSheet::columns() const {
    return {localized("Commit"), localized("Author"), localized("Date"), localized("Line"),
            localized("Text")};
}

QString BlameSheet::caption() const {
    return localized("Blame: %1", QString::fromUtf8(model().path()));
}

QString BlameSheet::countLine() const {
    return {};
}

QString BlameSheet::emptyText() const {
    return localized("No blame data available");
}

void BlameSheet::fill(QStandardItemModel& table) const {
    const QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (const BlameEntry& entry : model().blameEntries()) {
        const QString hash = QString::fromUtf8(entry.hash.substr(0, 7));
        const QString author = QString::fromUtf8(entry.authorName);
        const QString date = displayLocale().toString(
            QDateTime::fromSecsSinceEpoch(entry.authorDate.time_since_epoch().count()).date(),
            QLocale::ShortFormat);
        for (std::size_t i = 0; i < entry.lines.size(); ++i) {
            QList<QStandardItem*> row{new QStandardItem(i == 0 ? hash : QString()),
                                      new QStandardItem(i == 0 ? author : QString()),
                                      new QStandardItem(i == 0 ? date : QString()),
                                      new QStandardItem(QString::number(entry.finalLineNumber + int(i))),
                                      new QStandardItem(QString::fromUtf8(entry.lines[i]))};
            row[0]->setFont(mono);
            row[4]->setFont(mono);
            row[0]->setToolTip(QString::fromUtf8(entry.summary));
            table.appendRow(row);
        }
    }
}

} // namespace orvel
