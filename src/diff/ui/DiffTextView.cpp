#include "diff/ui/DiffTextView.h"

#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QGlyphRun>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

constexpr int tabWidth = 4;
constexpr int cellPadding = 6;

// Tabs become spaces up to the next stop, so that columns line up as in an editor; a carriage
// return of a CRLF file is not drawn.
QString displayText(std::string_view bytes) {
    if (!bytes.empty() && bytes.back() == '\r')
        bytes.remove_suffix(1);
    QString text = QString::fromUtf8(bytes.data(), qsizetype(bytes.size()));
    if (!text.contains(u'\t'))
        return text;
    QString expanded;
    expanded.reserve(text.size() + 16);
    for (const QChar c : text) {
        if (c == u'\t')
            expanded.append(QString(tabWidth - expanded.size() % tabWidth, u' '));
        else
            expanded.append(c);
    }
    return expanded;
}

// A token colour that still reads on the background: a theme made for dark windows keeps its
// light colours from vanishing on a light one, and the other way round.
QColor readableOn(QColor color, const QColor& background) {
    const bool darkBackground = background.lightnessF() < 0.5;
    if (!darkBackground && color.lightnessF() > 0.62)
        return color.darker(175);
    if (darkBackground && color.lightnessF() < 0.38)
        return color.lighter(220);
    return color;
}

// An overlay colour from the theme (often translucent) laid over the background, so rows paint
// in one fill.
QColor over(const QColor& overlay, const QColor& background) {
    const qreal a = overlay.alphaF();
    return QColor::fromRgbF(overlay.redF() * a + background.redF() * (1 - a),
                            overlay.greenF() * a + background.greenF() * (1 - a),
                            overlay.blueF() * a + background.blueF() * (1 - a));
}

// Whether two lists of rows show the same: a reload that changed nothing keeps the chosen lines.
bool sameRows(const std::vector<DiffDisplayRow>& left, const std::vector<DiffDisplayRow>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const DiffDisplayRow& a, const DiffDisplayRow& b) {
                          return a.hunk == b.hunk && a.isHunkHeader == b.isHunkHeader &&
                                 a.leftTone == b.leftTone && a.rightTone == b.rightTone &&
                                 a.leftLine == b.leftLine && a.rightLine == b.rightLine && a.left == b.left &&
                                 a.right == b.right;
                      });
}

} // namespace

DiffTextView::DiffTextView(QWidget* parent) : QAbstractScrollArea(parent) {
    setObjectName(QStringLiteral("diff-pane.text"));
    setFocusPolicy(Qt::StrongFocus);
    setFrameShape(QFrame::NoFrame);
    viewport()->setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
    refreshStyle();
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, [this] {
        refreshStyle();
        viewport()->update();
    });
}

void DiffTextView::setRows(std::vector<DiffDisplayRow> rows, Layout layout, SourceLanguage language,
                           DiffDetailViewModel::HunkActions actions) {
    const bool sameShape = layout == layout_ && rows.size() == rows_.size();
    if (!sameShape || !sameRows(rows, rows_) || !(actions.stage || actions.unstage || actions.discard))
        clearChosen();
    rows_ = std::move(rows);
    layout_ = layout;
    language_ = language;
    actions_ = actions;
    coloured_.clear();
    coloured_.resize(rows_.size() * 2);
    headerRows_.clear();
    int largestNumber = 1;
    longestLine_ = 0;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        const DiffDisplayRow& line = rows_[row];
        if (line.isHunkHeader)
            headerRows_.push_back(int(row));
        largestNumber = std::max({largestNumber, line.leftNumber.value_or(0), line.rightNumber.value_or(0)});
        longestLine_ = std::max(longestLine_, int(std::max(line.left.size(), line.right.size())));
    }
    numberDigits_ = int(std::to_string(largestNumber).size());
    setAccessibleName(layout == Layout::sideBySide ? localized("Side-by-side diff")
                      : layout == Layout::file     ? localized("File")
                                                   : localized("Diff"));
    updateScrollBars();
    if (!sameShape) {
        verticalScrollBar()->setValue(0);
        horizontalScrollBar()->setValue(0);
    }
    viewport()->update();
}

void DiffTextView::refreshStyle() {
    const ThemeEngine& engine = ThemeEngine::shared();
    const Theme& theme = engine.currentTheme();
    const ThemeTokens& tokens = engine.currentTokens();
    Style style;
    style.font = engine.font(theme.fonts ? theme.fonts->monospaced : ThemeFont{}, true);
    style.background = tokens.window;
    style.gutter = tokens.panel;
    style.gutterText = tokens.fg3;
    style.text = tokens.fg;
    style.headerText = tokens.fg2;
    style.divider = tokens.strokeSoft;
    style.buttonFill = tokens.raised;
    style.buttonText = tokens.fg;
    style.hover = tokens.accent;
    style.addition = over(theme.colors.diff.addition.color(), style.background);
    style.deletion = over(theme.colors.diff.deletion.color(), style.background);
    style.hunkHeader = over(theme.colors.diff.hunkHeader.color(), style.gutter);
    style.emptyCell = style.gutter;
    style.chosen = tokens.accent;
    for (int type = 0; type <= int(SyntaxTokenType::plain); ++type)
        style.tokens.push_back(
            type == int(SyntaxTokenType::plain)
                ? style.text
                : readableOn(syntaxColor(theme.colors.syntax, SyntaxTokenType(type)), style.background));
    const QFontMetricsF metrics(style.font);
    style.charWidth = metrics.horizontalAdvance(QLatin1Char('0'));
    // The font sets text in columns when its narrowest and widest characters advance alike; the
    // font database doesn't say so for every monospaced family.
    const bool columns = std::all_of(std::begin("iW.M_"), std::end("iW.M_") - 1, [&](char c) {
        return metrics.horizontalAdvance(QLatin1Char(c)) == style.charWidth;
    });
    if (columns)
        style.columnFont = QRawFont::fromFont(style.font);
    style.lineHeight = int(std::ceil(metrics.height())) + 3;
    style.ascent = int(std::ceil(metrics.ascent())) + 1;
    style_ = std::move(style);
    // The glyphs of the lines coloured so far belong to the previous font.
    for (auto& slot : coloured_)
        slot.reset();
    updateScrollBars();
}

void DiffTextView::updateScrollBars() {
    const int height = viewport()->height();
    verticalScrollBar()->setRange(0, std::max(0, int(rows_.size()) * style_.lineHeight - height));
    verticalScrollBar()->setPageStep(height);
    verticalScrollBar()->setSingleStep(style_.lineHeight * 3);
    const int numberWidth = int((numberDigits_ + 1) * style_.charWidth) + cellPadding;
    const int gutter = layout_ == Layout::unified ? 2 * numberWidth : numberWidth;
    const int textWidth = int((longestLine_ + 4) * style_.charWidth) + gutter;
    const int visible = layout_ == Layout::sideBySide ? viewport()->width() / 2 : viewport()->width();
    horizontalScrollBar()->setRange(0, std::max(0, textWidth - visible));
    horizontalScrollBar()->setPageStep(visible);
    horizontalScrollBar()->setSingleStep(int(style_.charWidth * 4));
}

int DiffTextView::rowAt(int y) const {
    const int row = (y + verticalScrollBar()->value()) / style_.lineHeight;
    return row >= 0 && row < int(rows_.size()) ? row : -1;
}

int DiffTextView::currentHunk() const {
    const int row = rowAt(0);
    if (row < 0)
        return headerRows_.empty() ? -1 : rows_[std::size_t(headerRows_.front())].hunk;
    return rows_[std::size_t(row)].hunk;
}

void DiffTextView::scrollToHunk(int hunk) {
    for (const int row : headerRows_)
        if (rows_[std::size_t(row)].hunk == hunk)
            verticalScrollBar()->setValue(row * style_.lineHeight);
}

QList<quint32> DiffTextView::columnGlyphs(const QString& text) const {
    const bool printableAscii = std::all_of(
        text.begin(), text.end(), [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7f; });
    if (!style_.columnFont || !style_.columnFont->isValid() || !printableAscii)
        return {};
    return style_.columnFont->glyphIndexesForString(text);
}

void DiffTextView::drawColumns(QPainter& painter, QPointF at, const QList<quint32>& glyphs) const {
    QList<QPointF> positions(glyphs.size());
    for (qsizetype column = 0; column < glyphs.size(); ++column)
        positions[column] = QPointF(qreal(column) * style_.charWidth, 0);
    QGlyphRun run;
    run.setRawFont(*style_.columnFont);
    run.setGlyphIndexes(glyphs);
    run.setPositions(positions);
    painter.drawGlyphRun(at, run);
}

void DiffTextView::drawPlain(QPainter& painter, QPointF at, const QString& text) const {
    if (const QList<quint32> glyphs = columnGlyphs(text); !glyphs.isEmpty())
        drawColumns(painter, at, glyphs);
    else
        painter.drawText(at, text);
}

const DiffTextView::ColouredLine& DiffTextView::colouredLine(int row, bool right) {
    auto& slot = coloured_[std::size_t(row) * 2 + (right ? 1 : 0)];
    if (!slot) {
        const DiffDisplayRow& line = rows_[std::size_t(row)];
        ColouredLine coloured{displayText(right ? line.right.view() : line.left.view()), {}, {}};
        coloured.glyphs = columnGlyphs(coloured.text);
        const RowTone tone = right ? line.rightTone : line.leftTone;
        if (!line.isHunkHeader && tone != RowTone::noNewline)
            coloured.tokens = highlightTokens(coloured.text, language_);
        slot = std::make_unique<ColouredLine>(std::move(coloured));
    }
    return *slot;
}

QColor DiffTextView::toneColor(RowTone tone) const {
    switch (tone) {
    case RowTone::addition:
        return style_.addition;
    case RowTone::deletion:
        return style_.deletion;
    case RowTone::empty:
        return style_.emptyCell;
    case RowTone::context:
    case RowTone::noNewline:
        break;
    }
    return style_.background;
}

QString DiffTextView::buttonTitle(int action) const {
    switch (action) {
    case 0:
        return localized("Stage Hunk");
    case 1:
        return localized("Unstage Hunk");
    case 2:
        return localized("Discard Hunk");
    case 3:
        return localized("Stage Lines");
    case 4:
        return localized("Unstage Lines");
    default:
        return localized("Discard Lines");
    }
}

std::vector<DiffTextView::Button> DiffTextView::buttonsOf(int row, int y) const {
    std::vector<Button> buttons;
    if (row < 0 || !rows_[std::size_t(row)].isHunkHeader)
        return buttons;
    const QFontMetrics metrics(font());
    int right = viewport()->width() - cellPadding;
    const int height = style_.lineHeight - 4;
    // The line actions stand left of the hunk's, on the hunks that hold chosen lines.
    const bool lines = holdsChosenLines(rows_[std::size_t(row)].hunk);
    for (const int action : {2, 1, 0, 5, 4, 3}) {
        const int kind = action % 3;
        const bool offered = kind == 0 ? actions_.stage : kind == 1 ? actions_.unstage : actions_.discard;
        if (!offered || (action >= 3 && !lines))
            continue;
        const int width = metrics.horizontalAdvance(buttonTitle(action)) + 2 * cellPadding;
        buttons.push_back({action, QRect(right - width, y + 2, width, height)});
        right -= width + cellPadding;
    }
    return buttons;
}

bool DiffTextView::showsButtons(int hunk) const {
    if (hunk < 0)
        return false;
    const int hovered = viewport()->rect().contains(hoverPoint_) ? rowAt(hoverPoint_.y()) : -1;
    return (hovered >= 0 && rows_[std::size_t(hovered)].hunk == hunk) ||
           (hasFocus() && currentHunk() == hunk) || holdsChosenLines(hunk);
}

std::vector<ChosenLines> DiffTextView::chosenLines() const {
    if (anchorRow_ < 0)
        return {};
    return orvel::chosenLines(rows_, anchorRow_, cursorRow_, chosenRight_);
}

bool DiffTextView::holdsChosenLines(int hunk) const {
    if (anchorRow_ < 0)
        return false;
    const int first = std::min(anchorRow_, cursorRow_);
    const int last = std::max(anchorRow_, cursorRow_);
    for (int row = first; row <= last; ++row)
        if (rows_[std::size_t(row)].hunk == hunk && (isChosen(row, false) || isChosen(row, true)))
            return true;
    return false;
}

bool DiffTextView::isChosen(int row, bool right) const {
    if (anchorRow_ < 0 || right != chosenRight_ || row < std::min(anchorRow_, cursorRow_) ||
        row > std::max(anchorRow_, cursorRow_))
        return false;
    return showsChange(rows_[std::size_t(row)], right);
}

void DiffTextView::chooseTo(int row, bool right) {
    // Lines are chosen only where something can be done with them.
    if (rows_.empty() || !(actions_.stage || actions_.unstage || actions_.discard))
        return;
    row = std::clamp(row, 0, int(rows_.size()) - 1);
    if (anchorRow_ < 0) {
        anchorRow_ = row;
        chosenRight_ = right && layout_ == Layout::sideBySide;
    }
    cursorRow_ = row;
    // In sight below a pinned header.
    const int top = verticalScrollBar()->value();
    if (row * style_.lineHeight < top + style_.lineHeight)
        verticalScrollBar()->setValue(std::max(0, (row - 1) * style_.lineHeight));
    else if ((row + 1) * style_.lineHeight > top + viewport()->height())
        verticalScrollBar()->setValue((row + 1) * style_.lineHeight - viewport()->height());
    viewport()->update();
}

void DiffTextView::clearChosen() {
    anchorRow_ = cursorRow_ = -1;
    dragging_ = false;
    viewport()->update();
}

int DiffTextView::pinnedHeaderRow() const {
    const int first = rowAt(0);
    if (first < 0 || rows_[std::size_t(first)].isHunkHeader)
        return -1;
    const auto after = std::upper_bound(headerRows_.begin(), headerRows_.end(), first);
    if (after == headerRows_.begin())
        return -1;
    const int header = *std::prev(after);
    return rows_[std::size_t(header)].hunk == rows_[std::size_t(first)].hunk ? header : -1;
}

int DiffTextView::headerTop(int row) const {
    return row == pinnedHeaderRow() ? 0 : row * style_.lineHeight - verticalScrollBar()->value();
}

std::optional<DiffTextView::Button> DiffTextView::shownButtonAt(QPoint point) const {
    const int pinned = pinnedHeaderRow();
    const int row = pinned >= 0 && point.y() < style_.lineHeight ? pinned : rowAt(point.y());
    if (row < 0 || !showsButtons(rows_[std::size_t(row)].hunk))
        return std::nullopt;
    for (const Button& button : buttonsOf(row, headerTop(row)))
        if (button.rect.contains(point))
            return button;
    return std::nullopt;
}

QRect DiffTextView::hunkButtonRect(int hunk, int action) const {
    for (const int row : headerRows_) {
        if (rows_[std::size_t(row)].hunk != hunk)
            continue;
        const int y = headerTop(row);
        if (y < 0 || y >= viewport()->height())
            return {};
        for (const Button& button : buttonsOf(row, y))
            if (button.action == action)
                return button.rect;
    }
    return {};
}

void DiffTextView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const int top = verticalScrollBar()->value();
    // Every row fills its own width, so only what lies below the last row needs the background.
    const int rowsBottom = int(rows_.size()) * style_.lineHeight - top;
    if (rowsBottom <= event->rect().bottom())
        painter.fillRect(event->rect().adjusted(0, std::max(0, rowsBottom - event->rect().top()), 0, 0),
                         style_.background);
    if (rows_.empty())
        return;
    const int first = std::max(0, (top + event->rect().top()) / style_.lineHeight);
    const int last = std::min(int(rows_.size()) - 1, (top + event->rect().bottom()) / style_.lineHeight);
    painter.setFont(style_.font);
    for (int row = first; row <= last; ++row)
        paintRow(painter, row, row * style_.lineHeight - top);
    // A line under the pinned header tells it from the hunk's own header rows.
    if (const int pinned = pinnedHeaderRow(); pinned >= 0 && event->rect().top() < style_.lineHeight) {
        paintHeader(painter, pinned, 0);
        painter.setPen(style_.divider);
        painter.drawLine(0, style_.lineHeight - 1, viewport()->width(), style_.lineHeight - 1);
    }
    if (layout_ == Layout::sideBySide) {
        painter.setPen(style_.divider);
        const int middle = viewport()->width() / 2;
        painter.drawLine(middle, event->rect().top(), middle, event->rect().bottom());
    }
}

void DiffTextView::paintRow(QPainter& painter, int row, int y) {
    const DiffDisplayRow& line = rows_[std::size_t(row)];
    if (line.isHunkHeader) {
        paintHeader(painter, row, y);
        return;
    }
    const int numberWidth = int((numberDigits_ + 1) * style_.charWidth) + cellPadding;
    const int width = viewport()->width();
    switch (layout_) {
    case Layout::unified:
        paintCell(painter, row, false, QRect(0, y, width, style_.lineHeight), numberWidth, line.leftNumber,
                  line.rightNumber, line.leftTone);
        break;
    case Layout::file:
        paintCell(painter, row, false, QRect(0, y, width, style_.lineHeight), numberWidth, line.rightNumber,
                  std::nullopt, RowTone::context);
        break;
    case Layout::sideBySide:
        paintCell(painter, row, false, QRect(0, y, width / 2, style_.lineHeight), numberWidth,
                  line.leftNumber, std::nullopt, line.leftTone);
        paintCell(painter, row, true, QRect(width / 2 + 1, y, width - width / 2 - 1, style_.lineHeight),
                  numberWidth, line.rightNumber, std::nullopt, line.rightTone);
        break;
    }
}

void DiffTextView::paintCell(QPainter& painter, int row, bool right, const QRect& area, int numberWidth,
                             std::optional<int> first, std::optional<int> second, RowTone tone) {
    const bool twoNumbers = layout_ == Layout::unified;
    const int gutterWidth = twoNumbers ? 2 * numberWidth : numberWidth;
    const bool chosen = isChosen(row, right);
    QColor fill = toneColor(tone);
    if (chosen) {
        QColor tint = style_.chosen;
        tint.setAlphaF(0.22);
        fill = over(tint, fill);
    }
    painter.fillRect(area, fill);
    painter.fillRect(QRect(area.left(), area.top(), gutterWidth, area.height()),
                     tone == RowTone::addition || tone == RowTone::deletion ? fill.darker(104)
                                                                            : style_.gutter);
    // A bar at the cell's edge marks a chosen line apart from its colour, and a frame of the same
    // colour holds each run of chosen lines, so that the choice reads as one on any theme.
    if (chosen) {
        painter.fillRect(QRect(area.left(), area.top(), 3, area.height()), style_.chosen);
        painter.setPen(style_.chosen);
        painter.drawLine(area.topRight(), area.bottomRight());
        if (!isChosen(row - 1, right))
            painter.drawLine(area.topLeft(), area.topRight());
        if (!isChosen(row + 1, right))
            painter.drawLine(area.bottomLeft(), area.bottomRight());
    }
    if (tone == RowTone::empty)
        return;
    const int baseline = area.top() + style_.ascent;
    painter.setPen(style_.gutterText);
    auto drawNumber = [&](std::optional<int> number, int left) {
        if (!number)
            return;
        const QString text = QString::number(*number);
        drawPlain(painter,
                  QPointF(left + numberWidth - cellPadding / 2.0 - text.size() * style_.charWidth, baseline),
                  text);
    };
    drawNumber(first, area.left());
    if (twoNumbers)
        drawNumber(second, area.left() + numberWidth);

    const qreal markerLeft = area.left() + gutterWidth + 2;
    const QChar marker = tone == RowTone::addition ? u'+' : tone == RowTone::deletion ? u'-' : u' ';
    if (layout_ != Layout::file && marker != u' ')
        drawPlain(painter, QPointF(markerLeft, baseline), QString(marker));

    const qreal textLeft = markerLeft + (layout_ == Layout::file ? 4 : 2 * style_.charWidth);
    const QRect textArea(int(textLeft), area.top(), area.right() - int(textLeft) + 1, area.height());
    painter.save();
    painter.setClipRect(textArea);
    const ColouredLine& line = colouredLine(row, right);
    const QFontMetricsF metrics(style_.font);
    const bool counted = !line.text.isEmpty() && line.glyphs.size() == line.text.size();
    qreal x = textLeft - horizontalScrollBar()->value();
    const qreal limit = area.right();
    int at = 0;
    auto drawRun = [&](int start, int length, const QColor& color) {
        if (length <= 0 || x > limit)
            return;
        painter.setPen(color);
        if (counted) {
            drawColumns(painter, QPointF(x, baseline), line.glyphs.mid(start, length));
            x += length * style_.charWidth;
            return;
        }
        const QString run = line.text.mid(start, length);
        painter.drawText(QPointF(x, baseline), run);
        x += metrics.horizontalAdvance(run);
    };
    const QColor& plain = tone == RowTone::noNewline ? style_.gutterText : style_.text;
    for (const SyntaxToken& token : line.tokens) {
        drawRun(at, token.start - at, plain);
        drawRun(token.start, token.length, style_.tokens[std::size_t(token.type)]);
        at = token.start + token.length;
    }
    drawRun(at, int(line.text.size()) - at, plain);
    painter.restore();
}

void DiffTextView::paintHeader(QPainter& painter, int row, int y) {
    const QRect area(0, y, viewport()->width(), style_.lineHeight);
    painter.fillRect(area, style_.hunkHeader);
    painter.setPen(style_.headerText);
    drawPlain(painter, QPointF(cellPadding, y + style_.ascent), colouredLine(row, false).text);
    if (!showsButtons(rows_[std::size_t(row)].hunk))
        return;
    const QPoint hover = hoverPoint_;
    painter.save();
    painter.setFont(font());
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Button& button : buttonsOf(row, y)) {
        const bool hovered = button.rect.contains(hover);
        painter.setPen(hovered ? style_.hover : style_.divider);
        painter.setBrush(style_.buttonFill);
        painter.drawRoundedRect(QRectF(button.rect).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
        painter.setPen(hovered ? style_.hover : style_.buttonText);
        painter.drawText(button.rect, Qt::AlignCenter, buttonTitle(button.action));
    }
    painter.restore();
}

void DiffTextView::requestLinesAction(int action, const std::vector<ChosenLines>& lines) {
    if (lines.empty())
        return;
    switch (action) {
    case 0:
        if (actions_.stage)
            emit stageLinesRequested(lines);
        break;
    case 1:
        if (actions_.unstage)
            emit unstageLinesRequested(lines);
        break;
    default:
        if (actions_.discard)
            emit discardLinesRequested(lines);
        break;
    }
}

void DiffTextView::requestAction(int action, int hunk, const std::string& shown) {
    if (action >= 3) {
        requestLinesAction(action - 3, chosenLines());
        return;
    }
    if (hunk < 0)
        return;
    switch (action) {
    case 0:
        if (actions_.stage)
            emit stageHunkRequested(hunk, shown);
        break;
    case 1:
        if (actions_.unstage)
            emit unstageHunkRequested(hunk, shown);
        break;
    default:
        if (actions_.discard)
            emit discardHunkRequested(hunk, shown);
        break;
    }
}

void DiffTextView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

void DiffTextView::mouseMoveEvent(QMouseEvent* event) {
    hoverPoint_ = event->position().toPoint();
    if (dragging_ && (event->buttons() & Qt::LeftButton)) {
        const int y = std::clamp(hoverPoint_.y(), 0, viewport()->height() - 1);
        const int row = rowAt(y);
        chooseTo(row >= 0 ? row : int(rows_.size()) - 1);
    }
    viewport()->setCursor(shownButtonAt(hoverPoint_) ? Qt::PointingHandCursor : Qt::IBeamCursor);
    viewport()->update();
}

void DiffTextView::leaveEvent(QEvent* event) {
    hoverPoint_ = {-1, -1};
    viewport()->update();
    QAbstractScrollArea::leaveEvent(event);
}

void DiffTextView::mousePressEvent(QMouseEvent* event) {
    // The press is where the pointer is, whether or not a move told so before.
    hoverPoint_ = event->position().toPoint();
    if (event->button() == Qt::LeftButton) {
        if (const std::optional<Button> button = shownButtonAt(hoverPoint_)) {
            const int hunk = rows_[std::size_t(rowAt(hoverPoint_.y()))].hunk;
            requestAction(button->action, hunk, shownHunk(rows_, hunk));
            return;
        }
        // A click on a header (or the pinned one) lets the chosen lines go.
        const int row =
            hoverPoint_.y() < style_.lineHeight && pinnedHeaderRow() >= 0 ? -1 : rowAt(hoverPoint_.y());
        if (row < 0 || rows_[std::size_t(row)].isHunkHeader) {
            clearChosen();
        } else {
            // Shift+click moves the end of the chosen rows; a click starts them anew.
            if (!(event->modifiers() & Qt::ShiftModifier))
                clearChosen();
            chooseTo(row, hoverPoint_.x() > viewport()->width() / 2);
            dragging_ = anchorRow_ >= 0;
        }
    }
    QAbstractScrollArea::mousePressEvent(event);
}

void DiffTextView::mouseReleaseEvent(QMouseEvent* event) {
    dragging_ = false;
    QAbstractScrollArea::mouseReleaseEvent(event);
}

void DiffTextView::focusInEvent(QFocusEvent* event) {
    viewport()->update();
    QAbstractScrollArea::focusInEvent(event);
}

void DiffTextView::focusOutEvent(QFocusEvent* event) {
    viewport()->update();
    QAbstractScrollArea::focusOutEvent(event);
}

void DiffTextView::keyPressEvent(QKeyEvent* event) {
    const int hunk = currentHunk();
    auto moveHunk = [&](int step) {
        const int count = int(headerRows_.size());
        if (count > 0)
            scrollToHunk(std::clamp(hunk + step, 0, count - 1));
    };
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    switch (event->key()) {
    case Qt::Key_S:
    case Qt::Key_U:
    case Qt::Key_D: {
        const int action = event->key() == Qt::Key_S ? 0 : event->key() == Qt::Key_U ? 1 : 2;
        if (const std::vector<ChosenLines> lines = chosenLines(); !lines.empty())
            requestLinesAction(action, lines);
        else
            requestAction(action, hunk, shownHunk(rows_, hunk));
        return;
    }
    case Qt::Key_Escape:
        if (anchorRow_ < 0)
            QAbstractScrollArea::keyPressEvent(event);
        clearChosen();
        return;
    case Qt::Key_N:
        moveHunk(1);
        return;
    case Qt::Key_P:
        moveHunk(-1);
        return;
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int step = event->key() == Qt::Key_Up ? -1 : 1;
        if (!shift) {
            verticalScrollBar()->setValue(verticalScrollBar()->value() + step * style_.lineHeight);
            return;
        }
        if (anchorRow_ >= 0) {
            chooseTo(cursorRow_ + step);
            return;
        }
        // The first choice is the first change of the hunk the keys act on, on its side.
        for (std::size_t row = 0; row < rows_.size(); ++row)
            if (rows_[row].hunk == hunk &&
                (showsChange(rows_[row], false) || showsChange(rows_[row], true))) {
                chooseTo(int(row), !showsChange(rows_[row], false));
                return;
            }
        return;
    }
    case Qt::Key_Home:
        verticalScrollBar()->setValue(0);
        return;
    case Qt::Key_End:
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
        return;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void DiffTextView::contextMenuEvent(QContextMenuEvent* event) {
    // From the keyboard the menu is the hunk's that the keys act on; from the mouse, the one under it.
    const int row = event->reason() == QContextMenuEvent::Keyboard ? -1 : rowAt(event->pos().y());
    const int hunk = row >= 0 ? rows_[std::size_t(row)].hunk : currentHunk();
    if (hunk < 0 || !(actions_.stage || actions_.unstage || actions_.discard))
        return;
    // The menu waits for the person while a reload may replace the rows: the action carries the
    // hunk and the lines as they were when the menu opened.
    const std::string shown = shownHunk(rows_, hunk);
    const std::vector<ChosenLines> lines = chosenLines();
    QMenu menu(this);
    const std::pair<bool, const char*> offers[] = {
        {actions_.stage, "S"}, {actions_.unstage, "U"}, {actions_.discard, "D"}};
    // The chosen lines' actions come first: they take the keys while lines are chosen.
    if (!lines.empty()) {
        for (int action = 0; action < 3; ++action) {
            if (!offers[action].first)
                continue;
            QAction* item = menu.addAction(buttonTitle(action + 3), this,
                                           [this, action, &lines] { requestLinesAction(action, lines); });
            item->setShortcut(QKeySequence(QString::fromLatin1(offers[action].second)));
        }
        menu.addSeparator();
    }
    for (int action = 0; action < 3; ++action) {
        if (!offers[action].first)
            continue;
        QAction* item = menu.addAction(buttonTitle(action), this,
                                       [this, action, hunk, &shown] { requestAction(action, hunk, shown); });
        if (lines.empty())
            item->setShortcut(QKeySequence(QString::fromLatin1(offers[action].second)));
    }
    menu.exec(event->globalPos());
}

void DiffTextView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        refreshStyle();
        viewport()->update();
    }
    QAbstractScrollArea::changeEvent(event);
}

bool DiffTextView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ContextMenu) {
        contextMenuEvent(static_cast<QContextMenuEvent*>(event));
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

} // namespace orvel
