// tallix-make-icons OUTDIR
// tallix-make-icons --app-icon OUTDIR
//
// Paints the nine picture-button images of the main window as flat 48x48
// icons on a white ground and writes them as 24-bit BMP files into OUTDIR
// (the repository's res/ folder). Each file is read back and checked.
//
// With --app-icon: paints the program's icon, the piggy bank of the income
// button on a transparent ground, at the icon theme's sizes into
// OUTDIR/hicolor/NxN/apps/tallix.png (the build does this).
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

namespace {

constexpr int kSize = 48;

const QColor kInk(0x33, 0x3a, 0x45);
const QColor kBlue(0x1e, 0x6f, 0xc8);
const QColor kGreen(0x2e, 0x9e, 0x4f);
const QColor kRed(0xd3, 0x2f, 0x2f);
const QColor kGold(0xf2, 0xb7, 0x05);
const QColor kPaper(0xff, 0xff, 0xff);
const QColor kRule(0xa9, 0xb4, 0xc2);

QPen pen(const QColor& color, qreal width) {
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

// An arrowhead whose tip is at `tip`, pointing along `angleDegrees`
// (0 = right, 90 = down).
QPolygonF arrowHead(QPointF tip, qreal angleDegrees, qreal length, qreal halfWidth) {
    const qreal a = qDegreesToRadians(angleDegrees);
    const QPointF dir(std::cos(a), std::sin(a));
    const QPointF side(-dir.y(), dir.x());
    const QPointF base = tip - dir * length;
    return QPolygonF({tip, base + side * halfWidth, base - side * halfWidth});
}

// A sheet of paper with its top-right corner folded.
void drawSheet(QPainter& p, const QRectF& r, qreal fold) {
    QPainterPath sheet;
    sheet.moveTo(r.topLeft());
    sheet.lineTo(r.right() - fold, r.top());
    sheet.lineTo(r.right(), r.top() + fold);
    sheet.lineTo(r.bottomRight());
    sheet.lineTo(r.bottomLeft());
    sheet.closeSubpath();
    p.setPen(pen(kInk, 2));
    p.setBrush(kPaper);
    p.drawPath(sheet);
    QPainterPath corner;
    corner.moveTo(r.right() - fold, r.top());
    corner.lineTo(r.right() - fold, r.top() + fold);
    corner.lineTo(r.right(), r.top() + fold);
    p.setBrush(QColor(0xdd, 0xe3, 0xea));
    p.drawPath(corner);
}

// refresh.bmp: two chasing arrows in a circle.
void drawRefresh(QPainter& p) {
    const QRectF ring(9, 9, 30, 30);
    const QPointF c = ring.center();
    const qreal radius = ring.width() / 2;
    p.setPen(pen(kBlue, 5));
    p.setBrush(Qt::NoBrush);
    // Qt angles: counter-clockwise from three o'clock, in 1/16 degree.
    p.drawArc(ring, 20 * 16, 130 * 16);
    p.drawArc(ring, 200 * 16, 130 * 16);
    p.setPen(Qt::NoPen);
    p.setBrush(kBlue);
    // The arrows run counter-clockwise on screen; each head sits at the end
    // of its arc, pointing along the tangent.
    for (qreal endDeg : {150.0, 330.0}) {
        const qreal a = qDegreesToRadians(endDeg);
        const QPointF end(c.x() + radius * std::cos(a), c.y() - radius * std::sin(a));
        // Tangent of a counter-clockwise turn, in screen coordinates.
        const qreal direction = -endDeg - 90;
        const qreal d = qDegreesToRadians(direction);
        const QPointF tip = end + QPointF(std::cos(d), std::sin(d)) * 6;
        p.drawPolygon(arrowHead(tip, direction, 11, 7.5));
    }
}

// update.bmp: a calculator, for working the balances out again.
void drawUpdate(QPainter& p) {
    p.setPen(pen(kInk, 2));
    p.setBrush(QColor(0x4a, 0x55, 0x66));
    p.drawRoundedRect(QRectF(9, 4, 30, 40), 4, 4);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xc8, 0xf0, 0xc8));
    p.drawRoundedRect(QRectF(13, 8, 22, 9), 1.5, 1.5);
    // Figures on the display.
    p.setPen(pen(QColor(0x1b, 0x5e, 0x20), 1.6));
    for (int i = 0; i < 4; ++i) {
        const qreal x = 21 + i * 3.6;
        p.drawLine(QPointF(x, 10.5), QPointF(x, 14.5));
    }
    p.setPen(Qt::NoPen);
    for (int row = 0; row < 3; ++row) {
        for (int col = 0; col < 3; ++col) {
            const bool last = (row == 2 && col == 2);
            p.setBrush(last ? QColor(0xff, 0x9f, 0x1c) : QColor(0xf4, 0xf6, 0xf8));
            p.drawRoundedRect(QRectF(13 + col * 7.6, 21 + row * 7.4, 6, 5.6), 1.2, 1.2);
        }
    }
}

// dollarsignred.bmp: a bold red dollar sign.
void drawDollar(QPainter& p) {
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans"),
                      QStringLiteral("Sans Serif")});
    font.setBold(true);
    font.setPixelSize(44);
    QPainterPath glyph;
    glyph.addText(0, 0, font, QStringLiteral("$"));
    const QRectF box = glyph.boundingRect();
    const qreal scale = 42.0 / box.height();
    QTransform t;
    t.translate(kSize / 2.0, kSize / 2.0);
    t.scale(scale, scale);
    t.translate(-box.center().x(), -box.center().y());
    p.setPen(pen(QColor(0x9a, 0x1b, 0x1b), 1.2));
    p.setBrush(kRed);
    p.drawPath(t.map(glyph));
}

// Piggy Bank.bmp: a pink piggy bank with a coin dropping into its slot.
void drawPiggy(QPainter& p) {
    const QColor pink(0xf4, 0x8f, 0xb1);
    const QColor dark(0xb0, 0x3a, 0x66);
    p.setPen(pen(dark, 1.8));
    p.setBrush(pink);
    // Legs, then the body over them.
    p.drawRoundedRect(QRectF(12, 34, 6, 9), 2, 2);
    p.drawRoundedRect(QRectF(27, 34, 6, 9), 2, 2);
    // Ear.
    p.drawPolygon(QPolygonF({QPointF(28, 16), QPointF(33, 8), QPointF(36, 17)}));
    p.drawEllipse(QRectF(5, 14, 35, 25));
    // Snout.
    p.drawRoundedRect(QRectF(37, 22, 7, 9), 2.5, 2.5);
    p.setPen(Qt::NoPen);
    p.setBrush(dark);
    p.drawEllipse(QRectF(39.3, 24.5, 1.6, 1.8));
    p.drawEllipse(QRectF(39.3, 27.5, 1.6, 1.8));
    // Eye.
    p.drawEllipse(QRectF(31, 20, 3, 3));
    // Tail.
    p.setPen(pen(dark, 1.8));
    p.setBrush(Qt::NoBrush);
    QPainterPath tail;
    tail.moveTo(5.5, 24);
    tail.cubicTo(1, 23, 1, 18, 4, 18);
    p.drawPath(tail);
    // Coin slot and coin.
    p.setPen(pen(dark, 2.2));
    p.drawLine(QPointF(17, 16.5), QPointF(25, 16.5));
    p.setPen(pen(QColor(0xa0, 0x74, 0x00), 1.5));
    p.setBrush(kGold);
    p.drawEllipse(QRectF(16, 2, 10, 10));
    p.setPen(pen(QColor(0xa0, 0x74, 0x00), 1.2));
    p.drawLine(QPointF(21, 4.5), QPointF(21, 9.5));
}

// receivable.bmp: an invoice with money coming in (a green arrow into it).
void drawReceivable(QPainter& p) {
    drawSheet(p, QRectF(6, 3, 28, 38), 8);
    p.setPen(pen(kRule, 2));
    p.drawLine(QPointF(11, 12), QPointF(23, 12));
    p.drawLine(QPointF(11, 18), QPointF(28, 18));
    p.drawLine(QPointF(11, 24), QPointF(28, 24));
    p.drawLine(QPointF(11, 30), QPointF(20, 30));
    // A green badge with a dollar sign, and the arrow bringing it in.
    p.setPen(pen(kPaper, 2.5));
    p.setBrush(kGreen);
    p.drawEllipse(QRectF(25, 25, 21, 21));
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Liberation Sans"),
                      QStringLiteral("Sans Serif")});
    font.setBold(true);
    font.setPixelSize(16);
    p.setFont(font);
    p.setPen(kPaper);
    p.drawText(QRectF(25, 25, 21, 21), Qt::AlignCenter, QStringLiteral("$"));
    p.setPen(pen(kGreen, 3));
    p.drawLine(QPointF(45, 4), QPointF(32, 16));
    p.setPen(Qt::NoPen);
    p.setBrush(kGreen);
    p.drawPolygon(arrowHead(QPointF(27, 21), 137, 8, 5.5));
}

// bank.bmp: a classical bank building.
void drawBank(QPainter& p) {
    const QColor stone(0x3d, 0x5a, 0x80);
    p.setPen(Qt::NoPen);
    p.setBrush(stone);
    // Pediment and entablature.
    p.drawPolygon(QPolygonF({QPointF(24, 3), QPointF(45, 14), QPointF(3, 14)}));
    p.drawRect(QRectF(5, 15, 38, 4));
    // Columns.
    for (int i = 0; i < 4; ++i)
        p.drawRect(QRectF(8 + i * 9.3, 21, 4.5, 16));
    // Steps.
    p.drawRect(QRectF(5, 38, 38, 3));
    p.drawRect(QRectF(2, 42, 44, 3));
    // A light disc in the pediment.
    p.setBrush(kPaper);
    p.drawEllipse(QPointF(24, 10), 2.3, 2.3);
}

// Credit Card.bmp: a card with chip, stripe and number.
void drawCard(QPainter& p) {
    const QRectF card(3, 10, 42, 28);
    p.setPen(pen(QColor(0x15, 0x4c, 0x8c), 1.5));
    p.setBrush(kBlue);
    p.drawRoundedRect(card, 4, 4);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0x0d, 0x2f, 0x57));
    p.drawRect(QRectF(3.8, 15, 40.4, 5));
    // Chip.
    p.setPen(pen(QColor(0xa0, 0x74, 0x00), 1));
    p.setBrush(kGold);
    p.drawRoundedRect(QRectF(8, 23, 8, 6), 1.2, 1.2);
    p.drawLine(QPointF(12, 23), QPointF(12, 29));
    // Number and name.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xe3, 0xee, 0xfb));
    for (int group = 0; group < 4; ++group)
        p.drawRoundedRect(QRectF(8 + group * 9, 31.5, 7, 2.2), 1, 1);
    p.drawRoundedRect(QRectF(20, 24, 14, 2), 1, 1);
}

// desc.bmp: a page of notes with a pencil.
void drawDescription(QPainter& p) {
    drawSheet(p, QRectF(7, 3, 29, 40), 8);
    p.setPen(pen(kRule, 2));
    for (int i = 0; i < 5; ++i) {
        const qreal y = 13 + i * 6;
        p.drawLine(QPointF(12, y), QPointF(i == 4 ? 22 : 31, y));
    }
    // Pencil, lying from the upper right to the lower left.
    p.save();
    p.translate(37, 30);
    p.rotate(-55);
    p.setPen(pen(QColor(0x8a, 0x5a, 0x00), 1.2));
    p.setBrush(kGold);
    p.drawRect(QRectF(-2, -16, 8, 22));
    p.setBrush(QColor(0xf0, 0x8f, 0x9b));
    p.drawRect(QRectF(-2, -21, 8, 5));
    p.setBrush(QColor(0xf1, 0xd3, 0xa3));
    p.drawPolygon(QPolygonF({QPointF(-2, 6), QPointF(6, 6), QPointF(2, 13)}));
    p.setPen(Qt::NoPen);
    p.setBrush(kInk);
    p.drawPolygon(QPolygonF({QPointF(0.6, 10.5), QPointF(3.4, 10.5), QPointF(2, 13)}));
    p.restore();
}

// cat.bmp: two folders, one in front of the other.
void drawCategory(QPainter& p) {
    auto folder = [&p](QPointF at, const QColor& fill, const QColor& edge, const QColor& tab) {
        const qreal w = 34, h = 24;
        p.setPen(pen(edge, 1.5));
        p.setBrush(tab);
        QPainterPath back;
        back.moveTo(at.x(), at.y() + 4);
        back.lineTo(at.x(), at.y() + 1);
        back.quadTo(at.x(), at.y(), at.x() + 2, at.y());
        back.lineTo(at.x() + 11, at.y());
        back.lineTo(at.x() + 14, at.y() + 4);
        back.lineTo(at.x() + w, at.y() + 4);
        back.lineTo(at.x() + w, at.y() + h);
        back.lineTo(at.x(), at.y() + h);
        back.closeSubpath();
        p.drawPath(back);
        p.setBrush(fill);
        p.drawRoundedRect(QRectF(at.x(), at.y() + 7, w, h - 7), 2, 2);
    };
    folder(QPointF(11, 5), QColor(0x5c, 0x9c, 0xe6), QColor(0x1f, 0x5c, 0xa8),
           QColor(0x3d, 0x7f, 0xcc));
    folder(QPointF(3, 18), QColor(0xff, 0xc4, 0x3d), QColor(0xb3, 0x7a, 0x00),
           QColor(0xf0, 0xa8, 0x00));
}

struct Icon {
    const char* file;
    std::function<void(QPainter&)> draw;
};

bool makeFolder(const QString& path) {
    if (QDir().mkpath(path))
        return true;
    std::fprintf(stderr, "tallix-make-icons: cannot create %s\n", qPrintable(path));
    return false;
}

// The program's icon at each size of the icon theme, each drawn at its size.
int paintAppIcon(const QDir& out) {
    int failures = 0;
    for (int size : {16, 32, 48, 64, 128, 256}) {
        const QString folder = out.filePath(QStringLiteral("hicolor/%1x%1/apps").arg(size));
        if (!makeFolder(folder))
            return 1;
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        {
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.scale(size / qreal(kSize), size / qreal(kSize));
            drawPiggy(painter);
        }
        const QString path = folder + QStringLiteral("/tallix.png");
        const bool saved = image.save(path, "PNG");
        if (!saved || QImage(path).size() != QSize(size, size)) {
            std::fprintf(stderr, "tallix-make-icons: cannot write %s\n", qPrintable(path));
            ++failures;
        }
    }
    return failures == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    QGuiApplication app(argc, argv);

    const QStringList args = QGuiApplication::arguments();
    const bool appIcon = args.size() == 3 && args.at(1) == QStringLiteral("--app-icon");
    if (args.size() != 2 && !appIcon) {
        std::fprintf(stderr, "usage: tallix-make-icons [--app-icon] OUTDIR\n");
        return 2;
    }
    QDir out(args.back());
    if (!makeFolder(out.path()))
        return 1;
    if (appIcon)
        return paintAppIcon(out);

    const std::vector<Icon> icons = {
        {"refresh.bmp", drawRefresh},       {"update.bmp", drawUpdate},
        {"dollarsignred.bmp", drawDollar},  {"Piggy Bank.bmp", drawPiggy},
        {"receivable.bmp", drawReceivable}, {"bank.bmp", drawBank},
        {"Credit Card.bmp", drawCard},      {"desc.bmp", drawDescription},
        {"cat.bmp", drawCategory},
    };

    int failures = 0;
    for (const Icon& icon : icons) {
        QImage image(kSize, kSize, QImage::Format_RGB32);
        image.fill(Qt::white);
        {
            QPainter painter(&image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setRenderHint(QPainter::TextAntialiasing);
            icon.draw(painter);
        }
        // RGB888 has no alpha channel, so the BMP is written with 24 bits.
        image = image.convertToFormat(QImage::Format_RGB888);
        const QString path = out.filePath(QString::fromLatin1(icon.file));
        if (!image.save(path, "BMP")) {
            std::fprintf(stderr, "tallix-make-icons: cannot write %s\n", qPrintable(path));
            ++failures;
            continue;
        }
        QImageReader reader(path);
        const QByteArray format = reader.format();
        const QImage back = reader.read();
        if (back.isNull() || format != "bmp" || back.size() != QSize(kSize, kSize)) {
            std::fprintf(stderr, "tallix-make-icons: %s does not read back as a %dx%d BMP\n",
                         qPrintable(path), kSize, kSize);
            ++failures;
            continue;
        }
        std::printf("%s\n", qPrintable(path));
    }
    return failures == 0 ? 0 : 1;
}
