#include "content/ui/MarkdownView.h"

#include "content/MarkdownHtml.h"
#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"

#include <QDesktopServices>
#include <QEvent>
#include <QScrollBar>

namespace orvel {

namespace {

QColor blended(const QColor& base, const QColor& over, double amount) {
    return QColor::fromRgbF(base.redF() + (over.redF() - base.redF()) * amount,
                            base.greenF() + (over.greenF() - base.greenF()) * amount,
                            base.blueF() + (over.blueF() - base.blueF()) * amount);
}

// HTML colours have no alpha: a translucent token is laid over the view's background first.
QColor opaque(const QColor& colour, const QColor& background) {
    return blended(background, colour, colour.alphaF());
}

ThemeFonts themeFonts() {
    return ThemeEngine::shared().currentTheme().fonts.value_or(ThemeFonts{});
}

} // namespace

MarkdownView::MarkdownView(QWidget* parent) : QTextBrowser(parent) {
    setReadOnly(true);
    setOpenLinks(false);
    setFrameShape(QFrame::NoFrame);
    setAccessibleName(localized("Document"));
    connect(this, &QTextBrowser::anchorClicked, this, [](const QUrl& url) {
        // Only web and mail links leave the program; a relative or file link could start anything.
        const QString scheme = url.scheme().toLower();
        if (scheme == QLatin1String("http") || scheme == QLatin1String("https") ||
            scheme == QLatin1String("mailto"))
            QDesktopServices::openUrl(url);
    });
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, &MarkdownView::render);
}

void MarkdownView::setMarkdown(const QString& markdown) {
    markdown_ = markdown;
    isMarkdown_ = true;
    render();
}

void MarkdownView::setPlainDocument(const QString& text) {
    markdown_ = text;
    isMarkdown_ = false;
    render();
}

QVariant MarkdownView::loadResource(int, const QUrl&) {
    return {};
}

void MarkdownView::changeEvent(QEvent* event) {
    QTextBrowser::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        render();
}

MarkdownStyle MarkdownView::style() const {
    const ThemeEngine& engine = ThemeEngine::shared();
    const ThemeTokens& tokens = engine.currentTokens();
    const ThemeFonts fonts = themeFonts();
    const QColor background = palette().color(QPalette::Base);
    MarkdownStyle style;
    style.text = opaque(tokens.fg, background);
    style.secondaryText = opaque(tokens.fg2, background);
    style.codeBackground = blended(background, tokens.fg, 0.07);
    style.grid = opaque(tokens.stroke, background);
    style.link = opaque(tokens.accent, background);
    style.bodyPointSize = engine.font(fonts.body, false).pointSizeF();
    style.monoFamily = engine.font(fonts.monospaced, true).family();
    return style;
}

void MarkdownView::render() {
    const ThemeEngine& engine = ThemeEngine::shared();
    const ThemeFonts fonts = themeFonts();
    document()->setDefaultFont(engine.font(fonts.body, false));
    const int scroll = verticalScrollBar()->value();
    if (isMarkdown_)
        setHtml(markdownToHtml(markdown_.toStdString(), style()));
    else
        setPlainText(markdown_);
    verticalScrollBar()->setValue(scroll);
}

} // namespace orvel
