#include "sidebar/SidebarSectionExpansion.h"

#include "core/support/UserDefaults.h"

#include <QVariantMap>

namespace orvel {

namespace {

// A map from a repository's path to a map from a section's id to whether it is open.
const QString settingsKey = QStringLiteral("sidebarSectionsExpanded");

} // namespace

bool SidebarSectionExpansion::isExpanded(const std::string& repoPath, const QString& sectionId,
                                         int rowCount) const {
    const QVariant chosen =
        defaults_.value(settingsKey).toMap().value(QString::fromStdString(repoPath)).toMap().value(sectionId);
    return chosen.isValid() ? chosen.toBool() : rowCount <= collapsedAbove;
}

void SidebarSectionExpansion::setExpanded(const std::string& repoPath, const QString& sectionId,
                                          bool expanded) {
    QVariantMap repositories = defaults_.value(settingsKey).toMap();
    const QString repository = QString::fromStdString(repoPath);
    QVariantMap sections = repositories.value(repository).toMap();
    sections.insert(sectionId, expanded);
    repositories.insert(repository, sections);
    defaults_.setValue(settingsKey, repositories);
}

} // namespace orvel
