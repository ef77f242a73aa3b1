// The detail of a tag as `git show` prints it: the tagger, the date and the message of an
// annotated tag, and the commit it points at.
#pragma once

#include "widgets/OSheet.h"

class QPlainTextEdit;

namespace orvel {

class TagDetailSheet final : public OSheet {
    Q_OBJECT

  public:
    TagDetailSheet(const QString& tagName, const QString& detail, QWidget* parent = nullptr);

  protected:
    void retranslate() override;

  private:
    QString tagName_;
    QPlainTextEdit* detail_;
};

} // namespace orvel
