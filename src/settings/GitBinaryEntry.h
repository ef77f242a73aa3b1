// One git program the settings offer: where it is, its version and how the picker names it.
#pragma once

#include <QString>
#include <QUuid>

namespace orvel {

struct GitBinaryEntry {
    QUuid id = QUuid::createUuid();
    QString path;
    QString version;
    // The path followed by the version in brackets.
    QString label;
    // Chosen by the user rather than found in one of the usual places.
    bool isCustom = false;
};

} // namespace orvel
