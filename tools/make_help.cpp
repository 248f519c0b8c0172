// tallix-make-help INPUT.md OUTPUT.pdf
//
// Renders the user guide, written in Markdown, to the PDF that the program's
// Help command opens. Runs without a display: the offscreen platform is the
// default unless QT_QPA_PLATFORM says otherwise.
#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextTable>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr qreal kBodyPointSize = 10;
// Space between the body and the page number, in points.
constexpr qreal kFooterPoints = 24;

void fail(const QString& message) {
    std::fprintf(stderr, "tallix-make-help: %s\n", qPrintable(message));
}

QFont bodyFont() {
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans"),
                      QStringLiteral("Noto Sans"), QStringLiteral("Sans Serif")});
    font.setPointSizeF(kBodyPointSize);
    return font;
}

QFont codeFont() {
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Liberation Mono"),
                      QStringLiteral("Noto Mono"), QStringLiteral("Monospace")});
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(kBodyPointSize - 1);
    return font;
}

// The Markdown reader leaves tables, code and headings plain; give them the
// look of a printed guide.
void styleDocument(QTextDocument& doc) {
    const QColor heading(0x1f, 0x3a, 0x5f);
    const QColor rule(0xb0, 0xb8, 0xc4);
    const QColor shade(0xee, 0xf1, 0xf5);

    for (QTextBlock block = doc.begin(); block.isValid(); block = block.next()) {
        QTextCursor cursor(block);
        QTextBlockFormat blockFormat = block.blockFormat();
        const int level = blockFormat.headingLevel();
        if (level > 0) {
            blockFormat.setTopMargin(level == 1 ? 0 : 12);
            blockFormat.setBottomMargin(level == 1 ? 10 : 4);
            blockFormat.setPageBreakPolicy(QTextFormat::PageBreak_Auto);
            cursor.setBlockFormat(blockFormat);
            cursor.select(QTextCursor::BlockUnderCursor);
            QTextCharFormat chars;
            chars.setForeground(heading);
            cursor.mergeCharFormat(chars);
        } else if (blockFormat.hasProperty(QTextFormat::BlockCodeLanguage) ||
                   blockFormat.hasProperty(QTextFormat::BlockCodeFence)) {
            blockFormat.setBackground(shade);
            blockFormat.setLeftMargin(12);
            blockFormat.setTopMargin(2);
            blockFormat.setBottomMargin(6);
            cursor.setBlockFormat(blockFormat);
            cursor.select(QTextCursor::BlockUnderCursor);
            QTextCharFormat chars;
            chars.setFont(codeFont());
            cursor.mergeCharFormat(chars);
        } else if (!cursor.currentTable() && blockFormat.bottomMargin() < 4) {
            blockFormat.setBottomMargin(4);
            cursor.setBlockFormat(blockFormat);
        }
    }

    const QList<QTextFrame*> frames = doc.rootFrame()->childFrames();
    for (QTextFrame* frame : frames) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table)
            continue;
        QTextTableFormat tableFormat = table->format();
        tableFormat.setBorder(0.75);
        tableFormat.setBorderBrush(rule);
        tableFormat.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        tableFormat.setBorderCollapse(true);
        tableFormat.setCellSpacing(0);
        tableFormat.setCellPadding(3);
        tableFormat.setTopMargin(4);
        tableFormat.setBottomMargin(8);
        tableFormat.setHeaderRowCount(1);
        table->setFormat(tableFormat);
        // With collapsed borders the grid lines are the cells' own.
        for (int row = 0; row < table->rows(); ++row) {
            for (int column = 0; column < table->columns(); ++column) {
                QTextTableCell cell = table->cellAt(row, column);
                QTextTableCellFormat cellFormat = cell.format().toTableCellFormat();
                cellFormat.setBorder(0.75);
                cellFormat.setBorderBrush(rule);
                cellFormat.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
                cellFormat.setPadding(3);
                if (row == 0) {
                    cellFormat.setBackground(shade);
                    cellFormat.setFontWeight(QFont::Bold);
                }
                cell.setFormat(cellFormat);
            }
        }
    }

    // Inline code and code blocks: one monospace font, a little smaller than
    // the text, so that lines holding a file name keep their spacing.
    const QFont code = codeFont();
    for (QTextBlock block = doc.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            if (!fragment.isValid() || !fragment.charFormat().fontFixedPitch())
                continue;
            QTextCursor cursor(&doc);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            QTextCharFormat chars;
            chars.setFontFamilies(code.families());
            chars.setFontPointSize(code.pointSizeF());
            cursor.mergeCharFormat(chars);
        }
    }
}

// The page a document position falls on.
int pageOf(qreal y, qreal pageHeight) {
    return static_cast<int>(y / pageHeight);
}

// A heading must not end a page: move it to the next page when the first
// line after it does not fit below it. Returns true when a break was added.
bool keepHeadingsWithText(QTextDocument& doc, qreal pageHeight) {
    QAbstractTextDocumentLayout* layout = doc.documentLayout();
    for (QTextBlock block = doc.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0)
            continue;
        const QTextBlock next = block.next();
        if (!next.isValid())
            continue;
        const QRectF heading = layout->blockBoundingRect(block);
        const QRectF after = layout->blockBoundingRect(next);
        qreal firstLine = after.height();
        if (next.layout() && next.layout()->lineCount() > 0)
            firstLine = next.layout()->lineAt(0).height();
        const qreal afterTop = after.top() + next.blockFormat().topMargin();
        if (pageOf(heading.top(), pageHeight) == pageOf(afterTop + firstLine + 1, pageHeight))
            continue;
        QTextBlockFormat format = block.blockFormat();
        if (format.pageBreakPolicy() & QTextFormat::PageBreak_AlwaysBefore)
            continue;
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(block).setBlockFormat(format);
        return true;
    }
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    // No display is needed; an explicit QT_QPA_PLATFORM still wins.
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QGuiApplication app(argc, argv);

    const QStringList args = QGuiApplication::arguments();
    if (args.size() != 3) {
        fail(QStringLiteral("usage: tallix-make-help INPUT.md OUTPUT.pdf"));
        return 2;
    }
    const QString inputPath = args.at(1);
    const QString outputPath = args.at(2);

    QFile input(inputPath);
    if (!input.open(QIODevice::ReadOnly | QIODevice::Text)) {
        fail(QStringLiteral("cannot read %1: %2").arg(inputPath, input.errorString()));
        return 1;
    }
    const QString markdown = QString::fromUtf8(input.readAll());
    if (markdown.trimmed().isEmpty()) {
        fail(QStringLiteral("%1 is empty").arg(inputPath));
        return 1;
    }

    // A stale or half-written PDF must not survive a failed run.
    QFile::remove(outputPath);

    QPdfWriter writer(outputPath);
    writer.setResolution(300);
    writer.setTitle(QStringLiteral("Tallix user guide"));
    writer.setCreator(QStringLiteral("tallix-make-help"));
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(18, 15, 18, 12), QPageLayout::Millimeter));

    QPainter painter;
    if (!painter.begin(&writer)) {
        fail(QStringLiteral("cannot write %1").arg(outputPath));
        return 1;
    }

    QTextDocument doc;
    doc.documentLayout()->setPaintDevice(&writer);
    doc.setDefaultFont(bodyFont());
    doc.setDocumentMargin(0);
    doc.setMarkdown(markdown, QTextDocument::MarkdownDialectGitHub);
    styleDocument(doc);

    // Device pixels per point, for the footer's height and font.
    const qreal pixelsPerPoint = writer.resolution() / 72.0;
    const qreal width = writer.width();
    const qreal footer = kFooterPoints * pixelsPerPoint;
    const qreal bodyHeight = writer.height() - footer;
    if (width <= 0 || bodyHeight <= 0) {
        fail(QStringLiteral("the page has no room for text"));
        return 1;
    }
    doc.setPageSize(QSizeF(width, bodyHeight));
    for (int pass = 0; pass < 50 && keepHeadingsWithText(doc, bodyHeight); ++pass) {
    }

    const int pages = doc.pageCount();
    QFont footerFont = bodyFont();
    footerFont.setPointSizeF(kBodyPointSize - 2);
    for (int page = 0; page < pages; ++page) {
        if (page > 0 && !writer.newPage()) {
            fail(QStringLiteral("cannot start page %1 of %2").arg(page + 1).arg(outputPath));
            return 1;
        }
        painter.save();
        painter.translate(0, -page * bodyHeight);
        doc.drawContents(&painter, QRectF(0, page * bodyHeight, width, bodyHeight));
        painter.restore();

        painter.setFont(footerFont);
        painter.setPen(QColor(0x60, 0x60, 0x60));
        painter.drawText(
            QRectF(0, bodyHeight, width, footer), Qt::AlignHCenter | Qt::AlignBottom,
            QStringLiteral("Tallix user guide \u2014 page %1 of %2").arg(page + 1).arg(pages));
    }
    if (!painter.end()) {
        fail(QStringLiteral("cannot finish %1").arg(outputPath));
        return 1;
    }

    if (QFileInfo(outputPath).size() <= 0) {
        fail(QStringLiteral("%1 was not written").arg(outputPath));
        return 1;
    }
    std::printf("%s: %d page%s\n", qPrintable(outputPath), pages, pages == 1 ? "" : "s");
    return 0;
}
