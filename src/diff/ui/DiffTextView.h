// The painted lines of a diff or a file: line numbers, a marker column, and the text coloured by
// the highlighter on the background of its change. It paints only the rows in sight and colours a
// row the first time it is seen, so a change of 10,000 lines scrolls as smoothly as a short one.
// A hunk's header row carries its buttons (stage, unstage, discard) while the pointer is over the
// hunk, or while the view has the focus and the hunk is the one in sight, which the keys act on:
// S stages, U unstages, D discards, N and P move between hunks, the menu key opens its menu. The
// header of a hunk scrolled partly out of sight stays pinned at the top, so its buttons stay in
// reach. Lines are chosen by a click, a drag or Shift+click, and by Shift+Up and Shift+Down; side
// by side, they are the lines of the side where the choice began, removed on the left and added on
// the right. While chosen lines are changes, the headers of their hunks offer the line actions beside the
// hunk's, and S, U and D act on the lines instead of the hunk. Escape lets the lines go.
#pragma once

#include "diff/DiffDetailViewModel.h"
#include "diff/SyntaxHighlighter.h"

#include <QAbstractScrollArea>
#include <QColor>
#include <QFont>
#include <QList>
#include <QRawFont>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class DiffTextView final : public QAbstractScrollArea {
    Q_OBJECT

  public:
    enum class Layout : char { unified, sideBySide, file };

    explicit DiffTextView(QWidget* parent = nullptr);

    void setRows(std::vector<DiffDisplayRow> rows, Layout layout, SourceLanguage language,
                 DiffDetailViewModel::HunkActions actions);
    int rowCount() const { return int(rows_.size()); }
    // The hunk of the first row in sight, or -1.
    int currentHunk() const;
    void scrollToHunk(int hunk);
    // Where the header row of `hunk` shows the button of `action` (0 stage, 1 unstage, 2 discard;
    // 3, 4 and 5 the same for the chosen lines) when the hunk's buttons show, in viewport
    // coordinates; empty when it isn't offered or not in sight.
    QRect hunkButtonRect(int hunk, int action) const;
    // The additions and deletions of the chosen rows, by hunk.
    std::vector<ChosenLines> chosenLines() const;

  signals:
    // `shown` is the hunk as it was in sight when the person chose it (shownHunk()).
    void stageHunkRequested(int hunk, const std::string& shown);
    void unstageHunkRequested(int hunk, const std::string& shown);
    void discardHunkRequested(int hunk, const std::string& shown);
    void stageLinesRequested(const std::vector<ChosenLines>& lines);
    void unstageLinesRequested(const std::vector<ChosenLines>& lines);
    void discardLinesRequested(const std::vector<ChosenLines>& lines);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

  private:
    struct Style {
        QFont font;
        QColor background, gutter, gutterText, text, headerText, hover, buttonFill, buttonText, divider;
        QColor addition, deletion, hunkHeader, emptyCell, chosen;
        std::vector<QColor> tokens; // by SyntaxTokenType
        qreal charWidth = 7;
        std::optional<QRawFont> columnFont; // the font when it sets text in columns
        int lineHeight = 16;
        int ascent = 12;
    };
    struct ColouredLine {
        QString text;
        std::vector<SyntaxToken> tokens;
        // For a line of printable ASCII in a fixed-pitch font, where every character takes one
        // column: its glyphs, looked up once, which paint without shaping the text again.
        QList<quint32> glyphs;
    };
    struct Button {
        int action; // 0 stage, 1 unstage, 2 discard; 3 to 5 the same for the chosen lines
        QRect rect;
    };

    void refreshStyle();
    void updateScrollBars();
    const ColouredLine& colouredLine(int row, bool right);
    // The glyphs of `text` when the font sets it in columns (printable ASCII), else none.
    QList<quint32> columnGlyphs(const QString& text) const;
    // `glyphs` one column apart from `at`, on its baseline.
    void drawColumns(QPainter& painter, QPointF at, const QList<quint32>& glyphs) const;
    // Text in the view's font: from its glyphs in columns where it can, else shaped.
    void drawPlain(QPainter& painter, QPointF at, const QString& text) const;
    void paintRow(QPainter& painter, int row, int y);
    void paintCell(QPainter& painter, int row, bool right, const QRect& area, int numberWidth,
                   std::optional<int> first, std::optional<int> second, RowTone tone);
    void paintHeader(QPainter& painter, int row, int y);
    std::vector<Button> buttonsOf(int row, int y) const;
    // The header row pinned at the top: the first row in sight lies in a hunk whose header has
    // scrolled above it. -1 when there is none.
    int pinnedHeaderRow() const;
    // Where the header `row` is drawn, pinned or in its place.
    int headerTop(int row) const;
    // Whether the buttons of `hunk` show: it is under the pointer, the keys act on it, or it holds
    // chosen lines.
    bool showsButtons(int hunk) const;
    bool holdsChosenLines(int hunk) const;
    // Whether the side of `row` shows a chosen addition or deletion.
    bool isChosen(int row, bool right) const;
    // Chooses the rows from the anchor to `row`, and keeps `row` in sight; the first choice takes
    // the lines of the `right` side (of the side-by-side view), the ones after keep the side.
    void chooseTo(int row, bool right = false);
    void clearChosen();
    // The button of the header row under `point` that shows there, if any.
    std::optional<Button> shownButtonAt(QPoint point) const;
    int rowAt(int y) const;
    void requestAction(int action, int hunk, const std::string& shown);
    // The chosen lines' action (0 stage, 1 unstage, 2 discard), when offered.
    void requestLinesAction(int action, const std::vector<ChosenLines>& lines);
    QString buttonTitle(int action) const;
    QColor toneColor(RowTone tone) const;

    std::vector<DiffDisplayRow> rows_;
    std::vector<int> headerRows_;
    Layout layout_ = Layout::unified;
    SourceLanguage language_ = SourceLanguage::unknown;
    DiffDetailViewModel::HunkActions actions_;
    // Rows coloured so far: two a row, for the left and the right side; a slot is a pointer, so that
    // the many rows never seen cost one word each.
    std::vector<std::unique_ptr<ColouredLine>> coloured_;
    int numberDigits_ = 1;
    int longestLine_ = 0;
    Style style_;
    QPoint hoverPoint_{-1, -1};
    // The chosen rows run from the anchor to the cursor, either way; none while the anchor is -1.
    int anchorRow_ = -1;
    int cursorRow_ = -1;
    // The side of the chosen rows whose lines are chosen: the right one of the side-by-side view.
    bool chosenRight_ = false;
    bool dragging_ = false;
};

} // namespace orvel
