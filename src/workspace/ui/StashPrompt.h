// The question before a stash: a name for it, or nothing for the generated one shown as the
// field's placeholder.
#pragma once

#include "widgets/OSheet.h"

class QLabel;
class QLineEdit;

namespace orvel {

class StashPrompt final : public OSheet {
    Q_OBJECT

  public:
    StashPrompt(QString placeholder, QWidget* parent = nullptr);

  signals:
    // The typed name, or the placeholder when the field was left empty.
    void stashRequested(const QString& name);

  protected:
    void retranslate() override;

  private:
    QString placeholder_;
    QLabel* prompt_;
    QLineEdit* name_;
};

} // namespace orvel
