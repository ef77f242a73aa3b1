#include "core/support/PrivateFiles.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include <unistd.h>

namespace orvel {

std::string temporaryDirectory() {
    return QFile::encodeName(QDir::tempPath()).toStdString();
}

std::string uniqueTemporaryPath(std::string_view prefix, std::string_view suffix) {
    std::string path = temporaryDirectory();
    path += '/';
    path += prefix;
    path += QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
    path += suffix;
    return path;
}

TemporaryFiles::~TemporaryFiles() {
    for (const std::string& path : paths_)
        ::unlink(path.c_str());
}

std::string TemporaryFiles::add(std::string path) {
    paths_.push_back(path);
    return path;
}

} // namespace orvel
