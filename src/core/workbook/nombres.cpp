#include "nombres.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

namespace thermique {

namespace {

// ---------------------------------------------------------------------------------------
// Reading

bool estBlanc(char16_t c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

bool estChiffre(char16_t c)
{
    return c >= u'0' && c <= u'9';
}

// Walks the text, passing over the characters that the parse removes.
class Lecteur
{
public:
    Lecteur(const QString &texte, bool sansGroupes)
        : m_p(texte.constData())
        , m_fin(texte.constData() + texte.size())
        , m_sansGroupes(sansGroupes)
    { }

    // The next character that counts; 0 at the end.
    char16_t courant()
    {
        while (m_p < m_fin && ignore(m_p->unicode()))
            ++m_p;
        return m_p < m_fin ? m_p->unicode() : char16_t(0);
    }
    void avancer() { ++m_p; }

private:
    bool ignore(char16_t c) const
    {
        return estBlanc(c) || (m_sansGroupes && (c == 0x00A0 || c == u','));
    }

    const QChar *m_p;
    const QChar *m_fin;
    bool m_sansGroupes;
};

// The characters of the number for from_chars: on the stack unless the text is
// unusually long.
class Tampon
{
public:
    void ajouter(char c)
    {
        if (!m_surTas) {
            if (m_taille < m_pile.size()) {
                m_pile[m_taille++] = c;
                return;
            }
            m_tas.assign(m_pile.data(), m_taille);
            m_surTas = true;
        }
        m_tas.push_back(c);
        ++m_taille;
    }
    const char *debut() const { return m_surTas ? m_tas.data() : m_pile.data(); }
    const char *fin() const { return debut() + m_taille; }

private:
    std::array<char, 64> m_pile;
    std::string m_tas;
    std::size_t m_taille = 0;
    bool m_surTas = false;
};

int valeurChiffre(char16_t c, int base)
{
    int v = -1;
    if (estChiffre(c))
        v = c - u'0';
    else if (c >= u'a' && c <= u'f')
        v = c - u'a' + 10;
    else if (c >= u'A' && c <= u'F')
        v = c - u'A' + 10;
    return v < base ? v : -1;
}

double lireEntierBase(Lecteur &lecteur, int base)
{
    double v = 0;
    for (char16_t c = lecteur.courant();; c = lecteur.courant()) {
        const int chiffre = valeurChiffre(c, base);
        if (chiffre < 0)
            break;
        v = v * base + chiffre;
        lecteur.avancer();
    }
    return v;
}

double lire(const QString &texte, bool sansGroupes)
{
    Lecteur lecteur(texte, sansGroupes);
    char16_t c = lecteur.courant();

    if (c == u'&') {
        lecteur.avancer();
        c = lecteur.courant();
        int base = 0;
        if (c == u'H' || c == u'h')
            base = 16;
        else if (c == u'O' || c == u'o')
            base = 8;
        else
            return 0;
        lecteur.avancer();
        return lireEntierBase(lecteur, base);
    }

    Tampon tampon;
    bool negatif = false;
    if (c == u'-' || c == u'+') {
        negatif = c == u'-';
        if (negatif)
            tampon.ajouter('-');
        lecteur.avancer();
        c = lecteur.courant();
    }

    // Order of magnitude of the mantissa, to tell an overflow from an underflow when
    // from_chars gives up.
    long ordre = 0;
    bool chiffres = false;
    bool significatif = false;
    bool point = false;
    for (;; c = lecteur.courant()) {
        if (estChiffre(c)) {
            chiffres = true;
            significatif = significatif || c != u'0';
            if (!point && significatif)
                ++ordre;
            else if (point && !significatif)
                --ordre;
            tampon.ajouter(char(c));
        } else if (c == u'.' && !point) {
            point = true;
            tampon.ajouter('.');
        } else {
            break;
        }
        lecteur.avancer();
    }
    if (!chiffres)
        return 0;

    // The exponent counts only with at least one digit: "1e" and "1e+" read 1.
    long exposant = 0;
    if (c == u'e' || c == u'E' || c == u'd' || c == u'D') {
        lecteur.avancer();
        c = lecteur.courant();
        char signe = 0;
        if (c == u'+' || c == u'-') {
            signe = char(c);
            lecteur.avancer();
            c = lecteur.courant();
        }
        if (estChiffre(c)) {
            tampon.ajouter('e');
            if (signe)
                tampon.ajouter(signe);
            for (; estChiffre(c); c = lecteur.courant()) {
                exposant = std::min(exposant * 10 + (c - u'0'), 1000000L);
                tampon.ajouter(char(c));
                lecteur.avancer();
            }
            if (signe == '-')
                exposant = -exposant;
        }
    }

    double v = 0;
    const auto [fin, erreur]
        = std::from_chars(tampon.debut(), tampon.fin(), v, std::chars_format::general);
    (void)fin;
    if (erreur == std::errc::result_out_of_range) {
        const double limite
            = significatif && ordre + exposant > 0 ? std::numeric_limits<double>::infinity() : 0.0;
        return negatif ? -limite : limite;
    }
    if (erreur != std::errc())
        return 0;
    return v;
}

// ---------------------------------------------------------------------------------------
// Decimal form

// A non-negative value as its 15 significant decimal digits: 0.c1c2...cn x 10^p.
struct Decimal
{
    std::array<char, 17> chiffres {};
    int n = 0; // 0 for zero; no trailing zeros
    int p = 0;

    bool nul() const { return n == 0; }

    // The digit of 10^j.
    int chiffre(long j) const
    {
        const long i = p - 1 - j;
        return i >= 0 && i < n ? chiffres[std::size_t(i)] - '0' : 0;
    }

    // Half away from zero on the decimal digits, never on the binary value: 1.005 has
    // the digits 1005 and goes to 1.01.
    void arrondir(int decimales)
    {
        if (n == 0)
            return;
        const long garde = long(p) + decimales;
        if (garde >= n)
            return;
        if (garde < 0) {
            n = p = 0;
            return;
        }
        const bool hausse = chiffres[std::size_t(garde)] >= '5';
        n = int(garde);
        if (hausse) {
            int i = n - 1;
            while (i >= 0 && chiffres[std::size_t(i)] == '9')
                --i;
            if (i < 0) {
                chiffres[0] = '1';
                n = 1;
                ++p;
            } else {
                ++chiffres[std::size_t(i)];
                n = i + 1;
            }
        }
        while (n > 0 && chiffres[std::size_t(n - 1)] == '0')
            --n;
        if (n == 0)
            p = 0;
    }
};

// The value must be finite; its sign is ignored.
Decimal decimal15(double valeur)
{
    Decimal d;
    char texte[40];
    const auto resultat = std::to_chars(texte, texte + sizeof texte, std::fabs(valeur),
                                        std::chars_format::scientific, 14);
    const char *e = std::find(texte, resultat.ptr, 'e');
    for (const char *c = texte; c < e; ++c)
        if (*c != '.')
            d.chiffres[std::size_t(d.n++)] = *c;
    while (d.n > 0 && d.chiffres[std::size_t(d.n - 1)] == '0')
        --d.n;
    if (d.n == 0)
        return d;

    const char *c = e + 1;
    const bool negatif = *c == '-';
    if (*c == '-' || *c == '+')
        ++c;
    int exposant = 0;
    std::from_chars(c, resultat.ptr, exposant);
    d.p = (negatif ? -exposant : exposant) + 1;
    return d;
}

// ---------------------------------------------------------------------------------------
// Patterns

bool estPlace(QChar c)
{
    return c == u'0' || c == u'#';
}

QString formaterSection(double valeur, QStringView motif, bool signe)
{
    const qsizetype point = motif.indexOf(u'.');
    const QStringView entier = point < 0 ? motif : motif.left(point);
    const QStringView fraction = point < 0 ? QStringView() : motif.mid(point + 1);

    qsizetype premier = -1;
    qsizetype dernier = -1;
    int placesEntieres = 0;
    for (qsizetype i = 0; i < entier.size(); ++i) {
        if (estPlace(entier[i])) {
            if (premier < 0)
                premier = i;
            dernier = i;
            ++placesEntieres;
        }
    }
    bool groupes = false;
    for (qsizetype i = premier + 1; i < dernier; ++i)
        groupes = groupes || entier[i] == u',';
    int decimales = 0;
    for (QChar c : fraction)
        decimales += estPlace(c) ? 1 : 0;

    QString texte;
    if (signe)
        texte += u'-';

    // A section without a digit is plain text, as the zero section of "0;-0;néant".
    if (placesEntieres == 0 && point < 0) {
        texte += motif;
        return texte;
    }

    Decimal d = decimal15(valeur);
    d.arrondir(decimales);
    const long chiffresEntiers = std::max(d.p, 0);

    // The integer part is filled from the units leftward; the groups follow the digits
    // written, whatever the place of the commas in the pattern.
    QString envers;
    envers.reserve(entier.size() + chiffresEntiers + chiffresEntiers / 3);
    long ecrits = 0;
    const auto ecrire = [&](int chiffre) {
        if (groupes && ecrits > 0 && ecrits % 3 == 0)
            envers += SeparateurMilliers;
        envers += QChar(char16_t(u'0' + chiffre));
        ++ecrits;
    };
    if (placesEntieres == 0) {
        for (long j = 0; j < chiffresEntiers; ++j)
            ecrire(d.chiffre(j));
    }
    long places = 0;
    for (qsizetype i = entier.size() - 1; i >= 0; --i) {
        const QChar c = entier[i];
        if (estPlace(c)) {
            if (places < chiffresEntiers)
                ecrire(d.chiffre(places));
            else if (c == u'0')
                ecrire(0);
            ++places;
            // Digits beyond the placeholders go in front of the first one.
            if (places == placesEntieres) {
                for (long j = places; j < chiffresEntiers; ++j)
                    ecrire(d.chiffre(j));
            }
        } else if (!(c == u',' && i > premier && i < dernier)) {
            envers += c;
        }
    }
    std::reverse(envers.begin(), envers.end());
    texte += envers;

    if (point < 0)
        return texte;

    // Trailing "#" decimals drop their zeros; a "0" stops the dropping.
    int montrees = decimales;
    {
        int rang = decimales;
        for (qsizetype i = fraction.size() - 1; i >= 0 && rang > 0; --i) {
            if (!estPlace(fraction[i]))
                continue;
            if (fraction[i] != u'#' || d.chiffre(-rang) != 0)
                break;
            montrees = --rang;
        }
    }
    texte += u'.';
    int rang = 0;
    for (QChar c : fraction) {
        if (estPlace(c)) {
            ++rang;
            if (rang <= montrees)
                texte += QChar(char16_t(u'0' + d.chiffre(-rang)));
        } else {
            texte += c;
        }
    }
    return texte;
}

// ---------------------------------------------------------------------------------------
// Dates

constexpr std::array<const char16_t *, 12> moisLongs = {
    u"janvier", u"février", u"mars",      u"avril",   u"mai",      u"juin",
    u"juillet", u"août",    u"septembre", u"octobre", u"novembre", u"décembre",
};
constexpr std::array<const char16_t *, 12> moisCourts = {
    u"janv.", u"févr.", u"mars",  u"avr.", u"mai",  u"juin",
    u"juil.", u"août",  u"sept.", u"oct.", u"nov.", u"déc.",
};

void ajouterNombre(QString &texte, int valeur, int largeur)
{
    texte += QString::number(valeur).rightJustified(largeur, u'0');
}

QString formaterDateHeure(const QDate &date, const QTime &heure, const QString &motif)
{
    QString texte;
    // "m" right after an hour token is the minutes.
    bool apresHeure = false;
    for (qsizetype i = 0; i < motif.size();) {
        const QChar c = motif[i];
        const char16_t lettre = c.toLower().unicode();
        qsizetype suite = 1;
        while (i + suite < motif.size() && motif[i + suite].toLower() == QChar(lettre))
            ++suite;

        qsizetype pris = 1;
        bool heureLue = false;
        switch (lettre) {
        case u'y':
            if (suite >= 4) {
                pris = 4;
                ajouterNombre(texte, date.year(), 4);
            } else if (suite >= 2) {
                pris = 2;
                ajouterNombre(texte, date.year() % 100, 2);
            } else {
                texte += c;
            }
            break;
        case u'm':
            if (apresHeure) {
                pris = std::min<qsizetype>(suite, 2);
                ajouterNombre(texte, heure.minute(), int(pris));
            } else if (suite >= 4) {
                pris = 4;
                texte += QStringView(moisLongs[std::size_t(date.month() - 1)]);
            } else if (suite == 3) {
                pris = 3;
                texte += QStringView(moisCourts[std::size_t(date.month() - 1)]);
            } else {
                pris = suite;
                ajouterNombre(texte, date.month(), int(pris));
            }
            break;
        case u'd':
            pris = std::min<qsizetype>(suite, 2);
            ajouterNombre(texte, date.day(), int(pris));
            break;
        case u'h':
            pris = std::min<qsizetype>(suite, 2);
            ajouterNombre(texte, heure.hour(), int(pris));
            heureLue = true;
            break;
        case u'n':
            pris = std::min<qsizetype>(suite, 2);
            ajouterNombre(texte, heure.minute(), int(pris));
            break;
        case u's':
            pris = std::min<qsizetype>(suite, 2);
            ajouterNombre(texte, heure.second(), int(pris));
            break;
        default:
            texte += c;
            i += 1;
            continue; // literals leave the hour context as it is
        }
        apresHeure = heureLue;
        i += pris;
    }
    return texte;
}

} // namespace

double Val(const QString &texte)
{
    return lire(texte, false);
}

double ValNombre(const QString &texte)
{
    return lire(texte, true);
}

double Int(double valeur)
{
    return std::floor(valeur);
}

QString TexteNombre(double valeur)
{
    if (std::isnan(valeur))
        return QStringLiteral("nan");
    if (std::isinf(valeur))
        return valeur > 0 ? QStringLiteral("inf") : QStringLiteral("-inf");

    const Decimal d = decimal15(valeur);
    if (d.nul())
        return QStringLiteral("0");

    QString texte;
    if (valeur < 0)
        texte += u'-';
    const int exposant = d.p - 1;
    if (exposant >= 15 || exposant < -4) {
        texte += QLatin1Char(d.chiffres[0]);
        if (d.n > 1) {
            texte += u'.';
            texte += QLatin1String(d.chiffres.data() + 1, d.n - 1);
        }
        texte += exposant < 0 ? QStringLiteral("E-") : QStringLiteral("E+");
        ajouterNombre(texte, std::abs(exposant), 2);
    } else if (d.p <= 0) {
        texte += QStringLiteral("0.");
        texte += QString(-d.p, u'0');
        texte += QLatin1String(d.chiffres.data(), d.n);
    } else {
        for (int i = 0; i < std::max(d.n, d.p); ++i) {
            if (i == d.p)
                texte += u'.';
            texte += QLatin1Char(i < d.n ? d.chiffres[std::size_t(i)] : '0');
        }
    }
    return texte;
}

QString Format(double valeur, const QString &motif)
{
    if (motif.isEmpty() || !std::isfinite(valeur))
        return TexteNombre(valeur);

    std::array<QStringView, 3> sections;
    int nombre = 0;
    {
        const QStringView tout(motif);
        qsizetype debut = 0;
        while (nombre < 3) {
            const qsizetype fin = tout.indexOf(u';', debut);
            sections[std::size_t(nombre++)] = tout.mid(debut, fin < 0 ? -1 : fin - debut);
            if (fin < 0)
                break;
            debut = fin + 1;
        }
    }

    QStringView section = sections[0];
    bool signe = valeur < 0;
    if (valeur < 0 && nombre >= 2 && !sections[1].isEmpty()) {
        section = sections[1];
        signe = false;
    } else if (valeur == 0 && nombre >= 3 && !sections[2].isEmpty()) {
        section = sections[2];
    }
    if (section.isEmpty())
        return TexteNombre(valeur);
    return formaterSection(valeur, section, signe);
}

QString FormatDate(const QDate &date, const QString &motif)
{
    if (!date.isValid())
        return QString();
    return formaterDateHeure(date, QTime(0, 0), motif);
}

QString FormatHeure(const QTime &heure, const QString &motif)
{
    if (!heure.isValid())
        return QString();
    // A time alone stands on the workbook's day zero.
    return formaterDateHeure(QDate(1899, 12, 30), heure, motif);
}

} // namespace thermique
