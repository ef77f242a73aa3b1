// A read-only view of a Markdown document, drawn with the theme's colours and fonts. Links open in
// the desktop's browser or mail program; nothing else is loaded, not even images.
#pragma once

#include <QTextBrowser>

namespace orvel {

struct MarkdownStyle;

class MarkdownView final : public QTextBrowser {
    Q_OBJECT

  public:
    explicit MarkdownView(QWidget* parent = nullptr);

    const QString& markdown() const { return markdown_; }
    void setMarkdown(const QString& markdown);
    // Text that isn't Markdown, shown as it is in the body font.
    void setPlainDocument(const QString& text);

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    MarkdownStyle style() const;
    void render();

    QString markdown_;
    bool isMarkdown_ = true;
};

} // namespace orvel
