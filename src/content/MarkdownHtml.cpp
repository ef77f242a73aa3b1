#include "content/MarkdownHtml.h"

#include <cmark-gfm-core-extensions.h>
#include <cmark-gfm-extension_api.h>
#include <cmark-gfm.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace orvel {

namespace {

// Deeper nesting (a line of thousands of ">") would recurse past the stack; it shows as text.
constexpr int maxDepth = 48;

// Heading sizes against the body text: title, second and third title, and the headline style.
constexpr double headingScale[] = {22.0 / 13, 17.0 / 13, 15.0 / 13, 13.0 / 13};

QString escaped(const char* text) {
    return QString::fromUtf8(text ? text : "").toHtmlEscaped();
}

bool isType(cmark_node* node, const char* name) {
    return std::strcmp(cmark_node_get_type_string(node), name) == 0;
}

// The text of every literal below `node`, walked without recursion.
QString plainText(cmark_node* node) {
    QString text;
    cmark_iter* iter = cmark_iter_new(node);
    for (cmark_event_type event; (event = cmark_iter_next(iter)) != CMARK_EVENT_DONE;) {
        if (event != CMARK_EVENT_ENTER)
            continue;
        cmark_node* current = cmark_iter_get_node(iter);
        const cmark_node_type type = cmark_node_get_type(current);
        if (type == CMARK_NODE_SOFTBREAK || type == CMARK_NODE_LINEBREAK)
            text += QLatin1Char(' ');
        else if (const char* literal = cmark_node_get_literal(current))
            text += QString::fromUtf8(literal);
    }
    cmark_iter_free(iter);
    return text;
}

class HtmlWriter {
  public:
    explicit HtmlWriter(const MarkdownStyle& style) : style_(style) {}

    QString document(cmark_node* root) {
        for (cmark_node* child = cmark_node_first_child(root); child; child = cmark_node_next(child))
            block(child, {});
        return html_;
    }

  private:
    // What the enclosing blocks pass down: list items of a tight list have no paragraph gaps, and
    // a quote's text is in the secondary colour.
    struct Context {
        int depth = 0;
        bool tight = false;
        bool secondary = false;
    };

    QString textColor(const Context& context) const {
        return (context.secondary ? style_.secondaryText : style_.text).name();
    }

    void children(cmark_node* node, const Context& context) {
        for (cmark_node* child = cmark_node_first_child(node); child; child = cmark_node_next(child))
            block(child, context);
    }

    void block(cmark_node* node, const Context& context) {
        if (context.depth > maxDepth) {
            paragraphOf(plainText(node).toHtmlEscaped(), context);
            return;
        }
        switch (cmark_node_get_type(node)) {
        case CMARK_NODE_HEADING:
            heading(node, context);
            return;
        case CMARK_NODE_PARAGRAPH:
            paragraphOf(inlines(node, context.depth), context);
            return;
        case CMARK_NODE_CODE_BLOCK:
            codeBlock(node);
            return;
        case CMARK_NODE_LIST:
            list(node, context);
            return;
        case CMARK_NODE_THEMATIC_BREAK:
            html_ += QStringLiteral("<hr/>");
            return;
        case CMARK_NODE_BLOCK_QUOTE:
            blockQuote(node, context);
            return;
        default:
            break;
        }
        if (isType(node, "table"))
            table(node, context);
        else
            paragraphOf(plainText(node).toHtmlEscaped(), context);
    }

    void paragraphOf(const QString& content, const Context& context) {
        html_ +=
            QStringLiteral("<p style=\"margin-top:0px; margin-bottom:%1px; color:%2; white-space:pre-wrap\">")
                .arg(context.tight ? 0 : 8)
                .arg(textColor(context));
        html_ += content + QStringLiteral("</p>");
    }

    void heading(cmark_node* node, const Context& context) {
        const int level = cmark_node_get_heading_level(node);
        const int index = std::clamp(level, 1, 4) - 1;
        html_ += QStringLiteral("<p style=\"margin-top:%1px; margin-bottom:6px; font-size:%2pt; "
                                "font-weight:%3; color:%4\">")
                     .arg(level <= 2 ? 6 : 2)
                     .arg(style_.bodyPointSize * headingScale[index], 0, 'f', 1)
                     .arg(level <= 3 ? 700 : 600)
                     .arg(textColor(context));
        html_ += inlines(node, context.depth) + QStringLiteral("</p>");
    }

    void codeBlock(cmark_node* node) {
        QString code = QString::fromUtf8(cmark_node_get_literal(node));
        if (code.endsWith(QLatin1Char('\n')))
            code.chop(1);
        html_ +=
            QStringLiteral("<table width=\"100%\" cellspacing=\"0\" cellpadding=\"8\" "
                           "style=\"margin-bottom:8px; background-color:%1\"><tr><td>"
                           "<pre style=\"margin:0px; font-family:'%2'; color:%3\">%4</pre></td></tr></table>")
                .arg(style_.codeBackground.name(), style_.monoFamily, style_.text.name(),
                     code.toHtmlEscaped());
    }

    void list(cmark_node* node, const Context& context) {
        const bool ordered = cmark_node_get_list_type(node) == CMARK_ORDERED_LIST;
        long long number = cmark_node_get_list_start(node);
        Context inner{context.depth + 1, cmark_node_get_list_tight(node) != 0, context.secondary};
        html_ += QStringLiteral("<table cellspacing=\"0\" cellpadding=\"0\" style=\"margin-left:8px; "
                                "margin-top:%1px; margin-bottom:8px\">")
                     .arg(context.tight ? 4 : 0);
        for (cmark_node* item = cmark_node_first_child(node); item; item = cmark_node_next(item)) {
            const QString marker = ordered ? QString::asprintf("%lld.", number++) : QStringLiteral("•");
            html_ += QStringLiteral("<tr><td valign=\"top\" style=\"padding-right:6px; padding-bottom:4px; "
                                    "color:%1\">%2</td><td style=\"padding-bottom:4px\">")
                         .arg(textColor(context), marker);
            children(item, inner);
            html_ += QStringLiteral("</td></tr>");
        }
        html_ += QStringLiteral("</table>");
    }

    void blockQuote(cmark_node* node, const Context& context) {
        html_ += QStringLiteral("<table cellspacing=\"0\" cellpadding=\"0\" style=\"margin-bottom:8px\"><tr>"
                                "<td width=\"3\" style=\"background-color:%1\"></td>"
                                "<td style=\"padding-left:12px; padding-top:4px\">")
                     .arg(style_.secondaryText.name());
        children(node, {context.depth + 1, false, true});
        html_ += QStringLiteral("</td></tr></table>");
    }

    void table(cmark_node* node, const Context& context) {
        const uint8_t* alignments = cmark_gfm_extensions_get_table_alignments(node);
        const int columns = cmark_gfm_extensions_get_table_columns(node);
        html_ += QStringLiteral("<table cellspacing=\"0\" cellpadding=\"4\" border=\"1\" "
                                "style=\"border-collapse:collapse; border-color:%1; border-style:solid; "
                                "margin-bottom:8px\">")
                     .arg(style_.grid.name());
        for (cmark_node* row = cmark_node_first_child(node); row; row = cmark_node_next(row)) {
            const bool header = cmark_gfm_extensions_get_table_row_is_header(row) != 0;
            html_ += QStringLiteral("<tr>");
            int column = 0;
            for (cmark_node* cell = cmark_node_first_child(row); cell;
                 cell = cmark_node_next(cell), ++column) {
                const char alignment =
                    alignments && column < columns ? static_cast<char>(alignments[column]) : 0;
                const QString align = alignment == 'c'   ? QStringLiteral("center")
                                      : alignment == 'r' ? QStringLiteral("right")
                                                         : QStringLiteral("left");
                html_ += QStringLiteral("<td align=\"%1\" style=\"color:%2%3\">")
                             .arg(align, textColor(context),
                                  header ? QStringLiteral("; font-weight:700") : QString());
                html_ += inlines(cell, context.depth) + QStringLiteral("</td>");
            }
            html_ += QStringLiteral("</tr>");
        }
        html_ += QStringLiteral("</table>");
    }

    QString inlines(cmark_node* node, int depth) {
        QString out;
        for (cmark_node* child = cmark_node_first_child(node); child; child = cmark_node_next(child))
            out += inlineNode(child, depth + 1);
        return out;
    }

    QString inlineNode(cmark_node* node, int depth) {
        if (depth > maxDepth)
            return plainText(node).toHtmlEscaped();
        switch (cmark_node_get_type(node)) {
        case CMARK_NODE_TEXT:
        case CMARK_NODE_HTML_INLINE:
            return escaped(cmark_node_get_literal(node));
        case CMARK_NODE_SOFTBREAK:
            return QStringLiteral(" ");
        case CMARK_NODE_LINEBREAK:
            return QStringLiteral("<br/>");
        case CMARK_NODE_CODE:
            return QStringLiteral("<span style=\"font-family:'%1'; background-color:%2\">%3</span>")
                .arg(style_.monoFamily, style_.codeBackground.name(), escaped(cmark_node_get_literal(node)));
        case CMARK_NODE_EMPH:
            return QStringLiteral("<i>") + inlines(node, depth) + QStringLiteral("</i>");
        case CMARK_NODE_STRONG:
            return QStringLiteral("<b>") + inlines(node, depth) + QStringLiteral("</b>");
        case CMARK_NODE_LINK:
            return QStringLiteral("<a href=\"%1\" style=\"color:%2\">%3</a>")
                .arg(escaped(cmark_node_get_url(node)), style_.link.name(), inlines(node, depth));
        default:
            // Images show their description; nothing is loaded.
            return plainText(node).toHtmlEscaped();
        }
    }

    const MarkdownStyle& style_;
    QString html_;
};

struct ParserDeleter {
    void operator()(cmark_parser* parser) const { cmark_parser_free(parser); }
};
struct NodeDeleter {
    void operator()(cmark_node* node) const { cmark_node_free(node); }
};

} // namespace

QString markdownToHtml(std::string_view markdown, const MarkdownStyle& style) {
    cmark_gfm_core_extensions_ensure_registered();
    std::unique_ptr<cmark_parser, ParserDeleter> parser(cmark_parser_new(CMARK_OPT_DEFAULT));
    if (cmark_syntax_extension* tables = cmark_find_syntax_extension("table"))
        cmark_parser_attach_syntax_extension(parser.get(), tables);
    cmark_parser_feed(parser.get(), markdown.data(), markdown.size());
    std::unique_ptr<cmark_node, NodeDeleter> root(cmark_parser_finish(parser.get()));
    return HtmlWriter(style).document(root.get());
}

} // namespace orvel
