// Which of the sidebar's sections are open in a repository. A section opens by itself unless it
// holds more rows than `collapsedAbove`, so that hundreds of tags do not push the stashes out of
// sight; once the user opens or closes a section, that choice holds for the repository and is
// kept in the settings.
#pragma once

#include <QString>

#include <string>

namespace orvel {

class UserDefaults;

class SidebarSectionExpansion {
  public:
    static constexpr int collapsedAbove = 50;

    explicit SidebarSectionExpansion(UserDefaults& defaults) : defaults_(defaults) {}

    bool isExpanded(const std::string& repoPath, const QString& sectionId, int rowCount) const;
    void setExpanded(const std::string& repoPath, const QString& sectionId, bool expanded);

  private:
    UserDefaults& defaults_;
};

} // namespace orvel
