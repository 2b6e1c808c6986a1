// draw_art.cpp — build tool: draws the program's art with QPainter, so that no picture is taken
// from elsewhere: the banner bitmap of the main window, the background picture MDI.BMP and the
// icon, the latter also in the sizes desktops ask for, laid out as an icon theme folder
// (HICOLOR/NxN/apps/quillon.png).
// Usage: quillon-art BANNER.png ICON.png MDI.BMP [HICOLOR]
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cstdio>

namespace {

// The banner: 12850 × 1050 twips. Its left 590 pixels carry the mark and the title; from 590 on
// the picture changes only from top to bottom, so the 20-pixel strip there repeats seamlessly and
// the end piece (590 to the right edge) joins it without a seam; the end piece's right part
// fades in a pattern of rising bars.
constexpr int kBannerWidth = 857;
constexpr int kBannerHeight = 70;
constexpr int kStripLeft = 590;

const QColor kDeep(0x17, 0x3F, 0x5F);
const QColor kSea(0x20, 0x63, 0x8F);
const QColor kGold(0xD9, 0xA4, 0x41);

void DrawBackdrop(QPainter& p, int width, int height) {
    QLinearGradient sky(0, 0, 0, height);
    sky.setColorAt(0.0, kSea);
    sky.setColorAt(1.0, kDeep);
    p.fillRect(0, 0, width, height, sky);
    p.fillRect(0, height - 3, width, 3, kGold);
}

// The mark: a white tile with three rising bars and a tick over them (figures that agree).
void DrawMark(QPainter& p, const QRectF& box) {
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 235));
    p.drawRoundedRect(box, box.width() * 0.2, box.height() * 0.2);
    p.save();
    p.translate(box.topLeft());
    p.scale(box.width() / 46.0, box.height() / 46.0);
    const QRectF unit(0, 0, 46, 46);
    const QColor bars[] = {QColor(0x5B, 0x9B, 0xD5), QColor(0x2E, 0x75, 0xB6), kDeep};
    const double heights[] = {14, 22, 30};
    for (int i = 0; i < 3; ++i) {
        p.setBrush(bars[i]);
        p.drawRoundedRect(QRectF(unit.left() + 9 + i * 10, unit.bottom() - 8 - heights[i], 7, heights[i]),
                          1.5, 1.5);
    }
    QPen check(kGold, 3.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(check);
    p.setBrush(Qt::NoBrush);
    QPainterPath path;
    path.moveTo(unit.left() + 8, unit.top() + 17);
    path.lineTo(unit.left() + 16, unit.top() + 24);
    path.lineTo(unit.left() + 37, unit.top() + 8);
    p.drawPath(path);
    p.restore();
}

void DrawTitle(QPainter& p) {
    QFont title("Noto Sans CJK SC");
    title.setPixelSize(24);
    title.setWeight(QFont::Bold);
    p.setFont(title);
    p.setPen(QColor(255, 255, 255));
    p.drawText(QPointF(76, 36), QStringLiteral("Quillon收费报表"));
    QFont sub("Noto Sans CJK SC");
    sub.setPixelSize(12);
    p.setFont(sub);
    p.setPen(QColor(0xCF, 0xE2, 0xF3));
    p.drawText(QPointF(78, 55), QStringLiteral("物业收费  ·  开票核对  ·  统计汇总"));
}

void DrawEndPattern(QPainter& p) {
    // Bars rising to the right, fading in from transparent so that the strip's edge stays plain.
    for (int i = 0; i < 14; ++i) {
        const int x = 660 + i * 14;
        const int h = 10 + i * 3;
        const int alpha = 12 + i * 5;
        p.fillRect(x, kBannerHeight - 3 - h, 8, h, QColor(255, 255, 255, alpha));
    }
    QRadialGradient glow(QPointF(kBannerWidth - 40, 8), 90);
    glow.setColorAt(0.0, QColor(255, 255, 255, 60));
    glow.setColorAt(1.0, QColor(255, 255, 255, 0));
    p.fillRect(QRect(kBannerWidth - 160, 0, 160, kBannerHeight - 3), glow);
}

QImage DrawBanner() {
    QImage image(kBannerWidth, kBannerHeight, QImage::Format_RGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);
    DrawBackdrop(p, kBannerWidth, kBannerHeight);
    DrawMark(p, QRectF(16, 11, 46, 46));
    DrawTitle(p);
    DrawEndPattern(p);
    return image;
}

// The windows' icon: the mark on the banner's blue. Drawn on a 64-pixel grid and scaled, so every
// size is drawn, not resampled.
QImage DrawIcon(int size = 64) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 64.0, size / 64.0);
    QLinearGradient sky(0, 0, 0, 64);
    sky.setColorAt(0.0, kSea);
    sky.setColorAt(1.0, kDeep);
    p.setPen(Qt::NoPen);
    p.setBrush(sky);
    p.drawRoundedRect(QRectF(0, 0, 64, 64), 12, 12);
    DrawMark(p, QRectF(8, 8, 48, 48));
    return image;
}

// The background: a calm light wash with faint ledger lines and soft discs, nothing that
// suffers from being stretched to any window shape.
QImage DrawBackground() {
    const int width = 1280, height = 800;
    QImage image(width, height, QImage::Format_RGB888);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient wash(0, 0, width, height);
    wash.setColorAt(0.0, QColor(0xF4, 0xF7, 0xFA));
    wash.setColorAt(1.0, QColor(0xD9, 0xE3, 0xEE));
    p.fillRect(image.rect(), wash);
    p.setPen(QPen(QColor(0x20, 0x63, 0x8F, 14), 1));
    for (int y = 40; y < height; y += 40) p.drawLine(0, y, width, y);
    for (int x = 160; x < width; x += 160) p.drawLine(x, 0, x, height);
    auto disc = [&p](QPointF centre, double radius, QColor colour) {
        QRadialGradient g(centre, radius);
        g.setColorAt(0.0, colour);
        colour.setAlpha(0);
        g.setColorAt(1.0, colour);
        p.setPen(Qt::NoPen);
        p.setBrush(g);
        p.drawEllipse(centre, radius, radius);
    };
    disc(QPointF(width * 0.82, height * 0.78), 420, QColor(0x20, 0x63, 0x8F, 40));
    disc(QPointF(width * 0.12, height * 0.18), 300, QColor(0xD9, 0xA4, 0x41, 26));
    // Faint rising bars in the lower right, echoing the banner.
    for (int i = 0; i < 9; ++i) {
        const double h = 60 + i * 28;
        p.setBrush(QColor(0x20, 0x63, 0x8F, 10 + i * 2));
        p.drawRoundedRect(QRectF(width - 420 + i * 42, height - 60 - h, 26, h), 4, 4);
    }
    return image;
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 4 && argc != 5) {
        std::fprintf(stderr, "usage: quillon-art BANNER.png ICON.png MDI.BMP [HICOLOR]\n");
        return 2;
    }
    const struct {
        QImage image;
        const char* file;
        const char* format;
    } pictures[] = {
        {DrawBanner(), argv[1], "PNG"}, {DrawIcon(), argv[2], "PNG"}, {DrawBackground(), argv[3], "BMP"}};
    for (const auto& picture : pictures) {
        if (!picture.image.save(QString::fromLocal8Bit(picture.file), picture.format)) {
            std::fprintf(stderr, "quillon-art: cannot write %s\n", picture.file);
            return 1;
        }
    }
    if (argc == 5) {
        // The sizes of the hicolor theme that menus, docks and launchers look for.
        for (int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
            const QString folder =
                QStringLiteral("%1/%2x%2/apps").arg(QString::fromLocal8Bit(argv[4])).arg(size);
            if (!QDir().mkpath(folder) || !DrawIcon(size).save(folder + "/quillon.png", "PNG")) {
                std::fprintf(stderr, "quillon-art: cannot write the %d-pixel icon under %s\n", size, argv[4]);
                return 1;
            }
        }
    }
    return 0;
}
