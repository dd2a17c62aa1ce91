// Draws the pictures of the thermal-bridge catalogue: one black-and-white section a detail,
// 240 x 180, written as 1-bit BMP in "data/Dessins Ponts Thermiques". Built and run by hand
// after scripts/data/construire_ponts_menuiseries.py (which lists the names in
// scripts/data/dessins_ponts.txt); the pictures are committed.
//
//   g++ -std=c++20 -fPIC scripts/data/dessins_ponts.cpp -o /tmp/dessins \
//       $(pkg-config --cflags --libs Qt6Gui)
//   QT_QPA_PLATFORM=offscreen /tmp/dessins scripts/data/dessins_ponts.txt \
//       "data/Dessins Ponts Thermiques"
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QTextStream>

namespace {

constexpr int largeur = 240;
constexpr int hauteur = 180;

void beton(QPainter &p, const QRectF &r)
{
    p.save();
    p.setClipRect(r);
    p.fillRect(r, Qt::white);
    for (int k = -hauteur; k < largeur + hauteur; k += 7)
        p.drawLine(QPointF(k, r.bottom()), QPointF(k + r.height(), r.top()));
    p.restore();
    p.drawRect(r);
}

void isolant(QPainter &p, const QRectF &r)
{
    p.fillRect(r, Qt::white);
    p.drawRect(r);
    QPainterPath zigzag;
    const bool vertical = r.height() >= r.width();
    const double pas = 6;
    if (vertical) {
        zigzag.moveTo(r.left(), r.top());
        bool gauche = false;
        for (double y = r.top() + pas; y <= r.bottom(); y += pas, gauche = !gauche)
            zigzag.lineTo(gauche ? r.left() : r.right(), y);
    } else {
        zigzag.moveTo(r.left(), r.top());
        bool haut = false;
        for (double x = r.left() + pas; x <= r.right(); x += pas, haut = !haut)
            zigzag.lineTo(x, haut ? r.top() : r.bottom());
    }
    p.drawPath(zigzag);
}

void brique(QPainter &p, const QRectF &r)
{
    p.save();
    p.setClipRect(r);
    p.fillRect(r, Qt::white);
    for (double y = r.top(); y < r.bottom(); y += 10)
        for (double x = r.left() + (int(y) / 10 % 2) * 6; x < r.right(); x += 12)
            p.drawRect(QRectF(x + 2, y + 2, 3, 6));
    p.restore();
    p.drawRect(r);
}

// The wall in section, x from `x0`, its insulation by kind; rows [y0, y1].
void mur(QPainter &p, const QString &iso, double y0, double y1, double x0 = 90)
{
    if (iso == QLatin1String("REP")) {
        brique(p, QRectF(x0 - 10, y0, 50, y1 - y0));
        return;
    }
    beton(p, QRectF(x0, y0, 30, y1 - y0));
    if (iso == QLatin1String("ITI"))
        isolant(p, QRectF(x0 + 30, y0, 16, y1 - y0));
    else
        isolant(p, QRectF(x0 - 16, y0, 16, y1 - y0));
}

void menuiserie(QPainter &p, const QString &iso, const QString &variante, double y0, double y1)
{
    const bool rep = iso == QLatin1String("REP");
    const double exterieur = rep ? 80 : 90;
    const double epaisseur = rep ? 50 : 30;
    double x = exterieur + epaisseur / 2 - 4; // tunnel
    if (variante == QLatin1String("-1") && iso == QLatin1String("ITI"))
        x = exterieur + epaisseur - 8;
    else if (variante == QLatin1String("-1") && iso == QLatin1String("ITE"))
        x = exterieur - 8 - 16;
    else if (variante == QLatin1String("-2") && iso == QLatin1String("ITE"))
        x = exterieur + epaisseur - 8;
    p.fillRect(QRectF(exterieur - 16, y0, epaisseur + 32, y1 - y0), Qt::white);
    p.drawRect(QRectF(x, y0, 8, y1 - y0));
    p.drawLine(QPointF(x + 4, y0 + 4), QPointF(x + 4, y1 - 4));
}

QString titre(const QString &iso, const QString &genre)
{
    static const QMap<QString, QString> isolations = {
        {QStringLiteral("ITI"), QStringLiteral("Isol. intérieure")},
        {QStringLiteral("ITE"), QStringLiteral("Isol. extérieure")},
        {QStringLiteral("REP"), QStringLiteral("Isol. répartie")},
    };
    static const QMap<QString, QString> genres = {
        {QStringLiteral("PB"), QStringLiteral("plancher bas")},
        {QStringLiteral("PI"), QStringLiteral("plancher intermédiaire")},
        {QStringLiteral("TT"), QStringLiteral("toiture terrasse")},
        {QStringLiteral("PH"), QStringLiteral("plancher haut, comble")},
        {QStringLiteral("RF"), QStringLiteral("refend (vue en plan)")},
        {QStringLiteral("BA"), QStringLiteral("balcon")},
        {QStringLiteral("ML"), QStringLiteral("linteau de menuiserie")},
        {QStringLiteral("MA"), QStringLiteral("appui de menuiserie")},
        {QStringLiteral("MT"), QStringLiteral("tableau (vue en plan)")},
        {QStringLiteral("MS"), QStringLiteral("seuil de porte-fenêtre")},
        {QStringLiteral("AS"), QStringLiteral("angle sortant (plan)")},
        {QStringLiteral("AR"), QStringLiteral("angle rentrant (plan)")},
    };
    return isolations.value(iso) + QStringLiteral(" - ") + genres.value(genre);
}

QImage dessiner(const QString &nom)
{
    // "PT-<insulation>-<kind>[-R|-1|-2]"
    const QStringList parties = nom.split(QLatin1Char('-'));
    const QString iso = parties.value(1);
    const QString genre = parties.value(2);
    const QString variante = parties.size() > 3 ? QLatin1Char('-') + parties.value(3) : QString();
    QImage image(largeur, hauteur, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setPen(QPen(Qt::black, 1));
    QFont police(QStringLiteral("DejaVu Sans"));
    police.setPixelSize(10);
    p.setFont(police);

    const double dalleHaut = 80, dalleBas = 100;
    if (genre == QLatin1String("PI") || genre == QLatin1String("BA")) {
        mur(p, iso, 10, dalleHaut);
        mur(p, iso, dalleBas, 150);
        const double debut = genre == QLatin1String("BA") ? 20 : (iso == QLatin1String("REP") ? 80 : 90);
        beton(p, QRectF(debut, dalleHaut, 230 - debut, dalleBas - dalleHaut));
        if (iso == QLatin1String("ITE") && genre == QLatin1String("PI"))
            isolant(p, QRectF(74, dalleHaut, 16, dalleBas - dalleHaut));
        if (iso == QLatin1String("REP"))
            isolant(p, QRectF(80, dalleHaut, 8, dalleBas - dalleHaut)); // strip in front of the slab
        if (variante == QLatin1String("-R"))
            isolant(p, QRectF(122, dalleHaut, 10, dalleBas - dalleHaut));
    } else if (genre == QLatin1String("PB")) {
        mur(p, iso, 10, 110);
        beton(p, QRectF(iso == QLatin1String("REP") ? 80 : 90, 110, 140, 20));
        beton(p, QRectF(90, 130, 30, 20)); // foundation wall
        isolant(p, QRectF(iso == QLatin1String("ITI") ? 136 : 120, 96, 94, 14));
        if (variante == QLatin1String("-R"))
            isolant(p, QRectF(122, 110, 10, 20));
        p.drawText(QRectF(150, 135, 80, 14), Qt::AlignCenter, QStringLiteral("vide sanitaire"));
    } else if (genre == QLatin1String("TT")) {
        mur(p, iso, 60, 150);
        beton(p, QRectF(iso == QLatin1String("REP") ? 80 : 90, 40, 140, 20));
        isolant(p, QRectF(90, 24, 140, 16));
        if (iso == QLatin1String("ITE"))
            isolant(p, QRectF(74, 24, 16, 36));
        if (variante == QLatin1String("-R"))
            isolant(p, QRectF(122, 40, 10, 20));
    } else if (genre == QLatin1String("PH")) {
        mur(p, iso, 60, 150);
        p.drawRect(QRectF(iso == QLatin1String("ITI") ? 136 : 120, 60, 94, 6)); // plasterboard
        isolant(p, QRectF(iso == QLatin1String("ITI") ? 136 : 120, 24, 94, 36));
        p.drawLine(QPointF(60, 60), QPointF(230, 10)); // roof slope
    } else if (genre == QLatin1String("RF") || genre == QLatin1String("MT")) {
        // Plan view: outside at the left.
        mur(p, iso, 10, 150);
        if (genre == QLatin1String("RF"))
            beton(p, QRectF(iso == QLatin1String("REP") ? 130 : 120, 70, 110, 25));
        else
            menuiserie(p, iso, variante, 70, 150);
    } else if (genre == QLatin1String("ML") || genre == QLatin1String("MA")
               || genre == QLatin1String("MS")) {
        const bool linteau = genre == QLatin1String("ML");
        if (linteau) {
            mur(p, iso, 10, 70);
            menuiserie(p, iso, variante, 70, 150);
        } else {
            menuiserie(p, iso, variante, 10, 90);
            mur(p, iso, 90, 150);
            if (genre == QLatin1String("MS"))
                beton(p, QRectF(iso == QLatin1String("REP") ? 80 : 90, 90, 140, 20));
            else
                p.drawRect(QRectF(60, 86, 40, 4)); // sill
        }
    } else if (genre == QLatin1String("AS") || genre == QLatin1String("AR")) {
        // Plan: an L of wall; the outside is left and top for an outer corner.
        const bool sortant = genre == QLatin1String("AS");
        const QString i = iso;
        if (i == QLatin1String("REP")) {
            brique(p, QRectF(60, 30, 40, 130));
            brique(p, QRectF(60, 30, 170, 40));
        } else {
            beton(p, QRectF(70, 40, 30, 120));
            beton(p, QRectF(70, 40, 160, 30));
            const bool dedans = (i == QLatin1String("ITI")) == sortant;
            if (dedans) {
                isolant(p, QRectF(100, 70, 14, 90));
                isolant(p, QRectF(100, 70, 130, 14));
            } else {
                isolant(p, QRectF(56, 26, 14, 134));
                isolant(p, QRectF(56, 26, 174, 14));
            }
        }
    }
    const bool plan = genre == QLatin1String("RF") || genre == QLatin1String("MT")
        || genre == QLatin1String("AS") || genre == QLatin1String("AR");
    const bool sortant = genre != QLatin1String("AR");
    p.drawText(QRectF(2, 2, 40, 12), Qt::AlignLeft, sortant ? QStringLiteral("ext.") : QStringLiteral("int."));
    p.drawText(QRectF(largeur - 42, hauteur - 30, 40, 12), Qt::AlignRight,
               sortant ? QStringLiteral("int.") : QStringLiteral("ext."));
    if (variante == QLatin1String("-R"))
        p.drawText(QRectF(150, 2, 88, 12), Qt::AlignRight, QStringLiteral("rupteur"));
    p.drawLine(0, hauteur - 17, largeur, hauteur - 17);
    p.drawText(QRectF(2, hauteur - 15, largeur - 4, 14), Qt::AlignCenter,
               titre(iso, genre) + (plan ? QString() : QString()));
    p.end();
    return image.convertToFormat(QImage::Format_Mono, Qt::ThresholdDither | Qt::MonoOnly);
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    if (argc < 3)
        return 2;
    QFile liste(QString::fromLocal8Bit(argv[1]));
    if (!liste.open(QIODevice::ReadOnly | QIODevice::Text))
        return 1;
    const QString dossier = QString::fromLocal8Bit(argv[2]);
    QDir().mkpath(dossier);
    QTextStream in(&liste);
    int n = 0;
    while (!in.atEnd()) {
        const QString nom = in.readLine().trimmed();
        if (nom.isEmpty())
            continue;
        if (!dessiner(nom).save(dossier + QLatin1Char('/') + nom + QStringLiteral(".bmp"), "BMP"))
            return 1;
        ++n;
    }
    QTextStream(stdout) << n << " dessins\n";
    return 0;
}
