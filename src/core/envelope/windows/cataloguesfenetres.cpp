#include "envelope/windows/cataloguesfenetres.h"

#include "envelope/coefu/editeurparois.h"
#include "envelope/windows/calculfenetre.h"
#include "workbook/grid.h"
#include "workbook/nombres.h"
#include "workbook/records.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace thermique {

namespace C = ColonneParoi;

namespace {

struct DescriptionCatalogue
{
    GenreCatalogue genre;
    const char *fichier;
    const char *libelle; // prefix of the block row that opens it
    const char *entetes1[5];
    const char *entetes2[5];
    int colonnes;
    int colonneValeur;
};

constexpr DescriptionCatalogue descriptions[] = {
    {GenreCatalogue::Vitrages,
     "Vitrages.txt",
     "Coefficient surfacique du vitrage (Ug) :",
     {"Désignation du type de vitrage.", "Epaisseur", "FS", "Ug", "TL"},
     {"", "(m)", "", "W/(m².K)", ""},
     5,
     3},
    {GenreCatalogue::Menuiseries,
     "Menuiseries.txt",
     "Coefficient des prof",
     {"Désignation du type de menuiserie.", "Uf"},
     {"", "W/(m².K)"},
     2,
     1},
    {GenreCatalogue::WarmEdge,
     "WarmEdge.txt",
     "Coefficient linéique du vitrage (psi-g) :",
     {"Désignation du type de liaison chaude, (Warm edge).", "Ul"},
     {"", "W/(m.K)"},
     2,
     1},
    {GenreCatalogue::Volets,
     "Volets.txt",
     "Résistance additionnelle volets (R) :",
     {"Désignation du type de fermeture.", "R"},
     {"", "(m²/(W.K)"},
     2,
     1},
    {GenreCatalogue::CoffreVolets,
     "CoffreVolets.txt",
     "Coefficient surfacique du coffre (Uc) :",
     {"Désignation du type de coffre.", "Uc"},
     {"", "(m²/(W.K)"},
     2,
     1},
};

const DescriptionCatalogue &description(GenreCatalogue g)
{
    for (const DescriptionCatalogue &d : descriptions)
        if (d.genre == g)
            return d;
    return descriptions[0];
}

// A catalogue holds a few hundred rows at most; beyond this the file is not a catalogue.
constexpr int lignesMaximales = 5000;

bool ecrireFichier(const QString &chemin, const RecordWriter &w)
{
    return QDir().mkpath(QFileInfo(chemin).absolutePath()) && EcrireFichier(chemin, w.bytes());
}

// Keyed records of the buffer: the key with its separator, and the block rows it fills.
struct CleTampon
{
    const char *cle;
    const char *libelles[2];
    int colonne;
};
constexpr CleTampon clesTampon[] = {
    // Longer keys first: "VitrageCoef1" also starts "VitrageCoef".
    {"VitrageCoef1=",
     {"Coefficient linéique du vitrage (psi-g) :", nullptr},
     C::ResistanceSuperficielle},
    {"VitrageCoef=",
     {"Coefficient surfacique du vitrage (Ug) :", nullptr},
     C::ResistanceSuperficielle},
    {"TL=", {"Coefficient surfacique du vitrage (Ug) :", nullptr}, C::Cache},
    {"PanneauCoef=",
     {"Coefficient surfacique de l'imposte (Up) :", "Coefficient surfacique de l'allège (Up) :"},
     C::ResistanceSuperficielle},
    {"PanneauLin=",
     {"Coefficient linéique de l'imposte (psi-p) :", "Coefficient linéique de l'allège (psi-p) :"},
     C::ResistanceSuperficielle},
    {"VoletsCoef=", {"Résistance additionnelle volets (R) :", nullptr}, C::ResistanceSuperficielle},
    {"CoffreCoef=",
     {"Coefficient surfacique du coffre (Uc) :", nullptr},
     C::ResistanceSuperficielle},
};

// The row of the block, between r+2 and r+17, whose label is `libelle`.
std::optional<int> ligneTampon(const Grid &g, int tete, const QString &libelle)
{
    const int fin = FinFenetre(g, tete).value_or(tete + LigneFenetre::Resultat);
    for (int r = tete + 2; r <= fin && r < g.rows(); ++r)
        if (g.text(r, C::Libelle) == libelle)
            return r;
    return std::nullopt;
}

} // namespace

QString FichierCatalogue(GenreCatalogue genre)
{
    return QString::fromUtf8(description(genre).fichier);
}

QStringList EntetesCatalogue(GenreCatalogue genre, int ligne)
{
    const DescriptionCatalogue &d = description(genre);
    QStringList l;
    for (int c = 0; c < d.colonnes; ++c)
        l << QString::fromUtf8(ligne == 0 ? d.entetes1[c] : d.entetes2[c]);
    return l;
}

int ColonnesCatalogue(GenreCatalogue genre)
{
    return description(genre).colonnes;
}

std::optional<GenreCatalogue> CatalogueDuLibelle(const QString &libelle)
{
    for (const DescriptionCatalogue &d : descriptions)
        if (libelle.startsWith(QString::fromUtf8(d.libelle)))
            return d.genre;
    return std::nullopt;
}

CatalogueMenuiserie LireCatalogue(const QString &chemin, GenreCatalogue genre)
{
    CatalogueMenuiserie cat;
    cat.genre = genre;
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly))
        return cat;
    const int n = ColonnesCatalogue(genre);
    const QString texte = DecoderWindows1252(f.read(4 << 20));
    const QStringList lignes = texte.split(QStringLiteral("\r\n"));
    for (const QString &ligne : lignes) {
        if (ligne.trimmed().isEmpty())
            continue;
        if (cat.lignes.size() >= lignesMaximales)
            break;
        RecordReader r(ligne);
        QStringList cellules;
        for (int c = 0; c < n; ++c)
            cellules << r.string();
        cat.lignes << cellules;
    }
    return cat;
}

bool EcrireCatalogue(const QString &chemin, const CatalogueMenuiserie &catalogue)
{
    const int n = ColonnesCatalogue(catalogue.genre);
    RecordWriter w;
    for (const QStringList &ligne : catalogue.lignes) {
        for (int c = 0; c < n; ++c)
            w.string(c < ligne.size() ? ligne.at(c) : QString());
        w.endRecord();
    }
    return ecrireFichier(chemin, w);
}

bool AppliquerChoixCatalogue(ContexteParois &ctx, int ligne, GenreCatalogue genre,
                             const QStringList &cellules)
{
    const DescriptionCatalogue &d = description(genre);
    const QString texte
        = d.colonneValeur < cellules.size() ? cellules.at(d.colonneValeur) : QString();
    if (texte.trimmed().isEmpty())
        return false;
    Grid &g = ctx.grille;
    const auto nombre = [](QString t) {
        t.replace(QLatin1Char(','), QLatin1Char('.'));
        return ValNombre(t);
    };
    g.setText(ligne, C::ResistanceSuperficielle,
              Format(nombre(texte), QStringLiteral("#,##0.000")));
    g.setOperation(ligne, C::ResistanceSuperficielle, QString());
    const auto tete = ChercherEntêteParoi(g, ligne);
    if (genre == GenreCatalogue::Vitrages) {
        g.setText(ligne, C::Cache,
                  cellules.value(4).trimmed().isEmpty()
                      ? QString()
                      : Format(nombre(cellules.value(4)), QStringLiteral("#0.00")));
        if (tete && !cellules.value(2).trimmed().isEmpty())
            g.setText(*tete, C::FacteurSolaire,
                      Format(nombre(cellules.value(2)), QStringLiteral("#,##0.00")));
    }
    if (tete)
        CalculFenêtre(ctx, *tete);
    return true;
}

TamponMenuiserie TamponDepuisBloc(const Grid &g, int tete)
{
    TamponMenuiserie t;
    for (int i = 0; i < 7; ++i)
        t.tete[i] = g.text(tete, C::Code + i);
    for (const CleTampon &k : clesTampon) {
        const auto r = ligneTampon(g, tete, QString::fromUtf8(k.libelles[0]));
        if (!r)
            continue;
        t.enregistrements << QString::fromUtf8(k.cle) + g.text(*r, k.colonne).trimmed();
    }
    return t;
}

std::optional<TamponMenuiserie> LireTampon(const QString &chemin)
{
    bool ouvert = false;
    RecordReader r(LireFichier(chemin, 1 << 20, &ouvert));
    if (!ouvert)
        return std::nullopt;
    TamponMenuiserie t;
    for (QString &s : t.tete)
        s = r.string();
    if (!r.ok())
        return std::nullopt;
    while (!r.atEnd() && t.enregistrements.size() < 100) {
        const auto s = r.readString();
        if (!s)
            break;
        t.enregistrements << *s;
    }
    return t;
}

bool EcrireTampon(const QString &chemin, const TamponMenuiserie &tampon)
{
    RecordWriter w;
    for (const QString &s : tampon.tete)
        w.stringRecord(s);
    for (const QString &s : tampon.enregistrements)
        w.stringRecord(s);
    return ecrireFichier(chemin, w);
}

void AppliquerTampon(ContexteParois &ctx, int tete, const TamponMenuiserie &tampon)
{
    Grid &g = ctx.grille;
    for (int i = 0; i < 7; ++i) {
        const int c = C::Code + i;
        // The head's label is what makes the block a joinery block: it stays.
        if (c == C::Libelle)
            continue;
        g.setText(tete, c, tampon.tete[i]);
        g.setOperation(tete, c, QString());
    }
    g.setText(tete, C::Code,
              ctx.typeConstruction == QStringLiteral("Bâtiment collectif.") ? QStringLiteral("A7")
                                                                            : QStringLiteral("A6"));
    for (const QString &e : tampon.enregistrements) {
        for (const CleTampon &k : clesTampon) {
            const QString cle = QString::fromUtf8(k.cle);
            if (!e.startsWith(cle))
                continue;
            const QString valeur = e.mid(cle.size());
            for (const char *l : k.libelles) {
                if (!l)
                    continue;
                if (const auto r = ligneTampon(g, tete, QString::fromUtf8(l))) {
                    g.setText(*r, k.colonne, valeur);
                    g.setOperation(*r, k.colonne, QString());
                }
            }
            break;
        }
    }
    CalculFenêtre(ctx, tete);
}

std::optional<SaisieFenetre> LireSaisieFenetre(const QString &chemin)
{
    bool ouvert = false;
    RecordReader r(LireFichier(chemin, 1 << 20, &ouvert));
    if (!ouvert)
        return std::nullopt;
    SaisieFenetre s;
    for (QString &t : s.textes)
        t = r.string();
    s.avecSeuil = r.number() != 0;
    s.sansSeuil = r.number() != 0;
    const qint64 couleur = r.readInteger(0, CouleursMenuiserie().size() - 1).value_or(0);
    s.couleur = int(couleur);
    return s;
}

bool EcrireSaisieFenetre(const QString &chemin, const SaisieFenetre &saisie)
{
    RecordWriter w;
    for (const QString &t : saisie.textes)
        w.stringRecord(t);
    w.integerRecord(saisie.avecSeuil ? 1 : 0);
    w.integerRecord(saisie.sansSeuil ? 1 : 0);
    w.integerRecord(saisie.couleur);
    return ecrireFichier(chemin, w);
}

const QStringList &TypesMasques()
{
    static const QStringList l = {
        QStringLiteral("Aucun masque"),
        QStringLiteral("Avancée horizontale (balcon, auvent)"),
        QStringLiteral("Joues latérales"),
        QStringLiteral("Loggia (avancée et joues)"),
        QStringLiteral("Obstacle en vis-à-vis"),
    };
    return l;
}

const QStringList &OptionsAlbedo()
{
    static const QStringList l = {
        QStringLiteral("0.20 : Herbe fraîche, pelouse"),
        QStringLiteral("0.30 : Herbe sèche"),
        QStringLiteral("0.16 : Terre cultivée, nue"),
        QStringLiteral("0.20 : Terre sableuse"),
        QStringLiteral("0.32 : Sable clair"),
        QStringLiteral("0.22 : Gravier"),
        QStringLiteral("0.19 : Asphalte"),
        QStringLiteral("0.25 : Plan d'eau calme"),
        QStringLiteral("0.07 : Mer, océan"),
        QStringLiteral("0.85 : Neige fraîche"),
    };
    return l;
}

namespace {

// Columns of a heat-loss window line.
constexpr int colonneSurface = 15;
constexpr int colonneMasque = 19;
constexpr int colonneNombre = 21;
constexpr int colonneLargeur = 22;
constexpr int colonneHauteur = 23;
constexpr int colonneAlbedo = 24;
constexpr int colonneGeometrie = 25;
constexpr int colonneVolets = 34;
constexpr int colonneOuvrant = 37;

// The figures of the surface operation: the window's two dimensions, then the number.
QStringList figuresSurface(const Grid &pertes, int ligne)
{
    QString op = pertes.operation(ligne, colonneSurface).trimmed();
    if (op.isEmpty())
        op = pertes.text(ligne, colonneSurface).trimmed();
    QStringList f = op.split(QLatin1Char('*'));
    for (QString &s : f)
        s = s.trimmed();
    return f;
}

} // namespace

DonneesFenetre DonneesDepuisLigne(const Grid &pertes, int ligne)
{
    DonneesFenetre d;
    const auto cellule = [&](int c, const QString &defaut) {
        const QString t = pertes.text(ligne, c).trimmed();
        return t.isEmpty() ? defaut : t;
    };
    const QString code = pertes.text(ligne, colonneMasque).trimmed();
    for (const QString &t : TypesMasques())
        if (!code.isEmpty() && t.startsWith(code))
            d.typeMasque = t;
    if (d.typeMasque.isEmpty())
        d.typeMasque = TypesMasques().first();
    const QStringList f = figuresSurface(pertes, ligne);
    d.nombre = cellule(colonneNombre, f.size() >= 3 ? f.at(2) : QStringLiteral("1"));
    d.largeur = cellule(colonneLargeur, f.value(1));
    d.hauteur = cellule(colonneHauteur, f.value(0));
    d.albedo = cellule(colonneAlbedo, QStringLiteral("0.20"));
    for (int i = 0; i < 9; ++i)
        d.masque[i] = cellule(colonneGeometrie + i, QStringLiteral("0"));
    d.volets = pertes.text(ligne, colonneVolets).trimmed() == QLatin1String("1");
    d.surfaceOuvrant = pertes.text(ligne, colonneOuvrant).trimmed();
    return d;
}

void EcrireDonneesFenetre(Grid &pertes, int ligne, const DonneesFenetre &d)
{
    if (pertes.cols() <= colonneOuvrant)
        pertes.setCols(colonneOuvrant + 1);
    pertes.setText(ligne, colonneMasque, d.typeMasque.left(4));
    pertes.setText(ligne, colonneNombre, d.nombre.trimmed());
    pertes.setText(ligne, colonneLargeur, d.largeur.trimmed());
    pertes.setText(ligne, colonneHauteur, d.hauteur.trimmed());
    pertes.setText(ligne, colonneAlbedo, d.albedo.left(4).trimmed());
    for (int i = 0; i < 9; ++i)
        pertes.setText(ligne, colonneGeometrie + i, d.masque[i].trimmed());
    pertes.setText(ligne, colonneVolets, d.volets ? QStringLiteral("1") : QStringLiteral("0"));
    pertes.setText(ligne, colonneOuvrant, d.surfaceOuvrant.trimmed());

    QStringList f = figuresSurface(pertes, ligne);
    const QString a = f.value(0).isEmpty() ? QStringLiteral("0") : f.value(0);
    const QString b = f.size() >= 2 && !f.at(1).isEmpty() ? f.at(1) : QStringLiteral("1");
    const QString n = d.nombre.trimmed().isEmpty() ? QStringLiteral("1") : d.nombre.trimmed();
    const auto nombre = [](QString t) {
        t.replace(QLatin1Char(','), QLatin1Char('.'));
        return ValNombre(t);
    };
    pertes.setOperation(ligne, colonneSurface, a + QLatin1Char('*') + b + QLatin1Char('*') + n);
    pertes.setText(ligne, colonneSurface,
                   Format(nombre(a) * nombre(b) * nombre(n), QStringLiteral("##0.00")));
}

} // namespace thermique
