#include "workspace/ShortcutText.h"

#include <array>

namespace orvel {

QString shortcutText(const QKeySequence& sequence) {
    const QKeyCombination none = QKeyCombination::fromCombined(0);
    std::array<QKeyCombination, 4> keys{none, none, none, none};
    for (int index = 0; index < sequence.count(); ++index) {
        QKeyCombination key = sequence[index];
        if (key.key() == Qt::Key_Backtab)
            key = QKeyCombination(key.keyboardModifiers() | Qt::ShiftModifier, Qt::Key_Tab);
        keys[static_cast<std::size_t>(index)] = key;
    }
    return QKeySequence(keys[0], keys[1], keys[2], keys[3]).toString(QKeySequence::NativeText);
}

} // namespace orvel
