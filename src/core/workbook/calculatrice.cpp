#include "calculatrice.h"

#include "nombres.h"
#include "userinterface.h"

#include <QStringView>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <new>
#include <string>

namespace thermique {

namespace {

using namespace Qt::Literals::StringLiterals;

// ---------------------------------------------------------------------------------------
// Evaluator: a recursive-descent reading of the operation text with the operators and
// functions of the script language the users' workbooks were written for. Syntax errors
// win over run-time errors, as with a script that is compiled before it runs.
// ---------------------------------------------------------------------------------------

enum class Erreur {
    Aucune,
    DivisionParZero,
    Syntaxe,
    ParentheseAttendue,
    ExpressionAttendue,
    FinInstructionAttendue,
    TypeIncompatible,
    VariableNonDefinie,
    NombreArguments,
    ArgumentIncorrect,
    Depassement,
    CaractereNonValide,
    PileInsuffisante
};

QString description(Erreur erreur, const QString &nom)
{
    switch (erreur) {
    case Erreur::Aucune:
        return {};
    case Erreur::DivisionParZero:
        return QStringLiteral("Division par zéro");
    case Erreur::Syntaxe:
        return QStringLiteral("Erreur de syntaxe");
    case Erreur::ParentheseAttendue:
        return QStringLiteral("')' attendu");
    case Erreur::ExpressionAttendue:
        return QStringLiteral("Expression attendue");
    case Erreur::FinInstructionAttendue:
        return QStringLiteral("Fin d'instruction attendue");
    case Erreur::TypeIncompatible:
        return QStringLiteral("Type incompatible: '") + nom + QLatin1Char('\'');
    case Erreur::VariableNonDefinie:
        return QStringLiteral("Variable non définie: '") + nom + QLatin1Char('\'');
    case Erreur::NombreArguments:
        return QStringLiteral("Nombre d'arguments incorrect ou affectation de propriété non "
                              "valide: '")
            + nom + QLatin1Char('\'');
    case Erreur::ArgumentIncorrect:
        return QStringLiteral("Argument ou appel de procédure incorrect");
    case Erreur::Depassement:
        return QStringLiteral("Dépassement de capacité");
    case Erreur::CaractereNonValide:
        return QStringLiteral("Caractère non valide");
    case Erreur::PileInsuffisante:
        return QStringLiteral("Espace pile insuffisant");
    }
    return {};
}

enum class Fonction { Sqr, Log, Atn, Int, Sgn, Abs, Exp, Sin, Cos, Tan };

struct NomFonction
{
    QLatin1StringView nom;
    Fonction fonction;
};

constexpr NomFonction Fonctions[] = {
    {"sqr"_L1, Fonction::Sqr}, {"log"_L1, Fonction::Log}, {"atn"_L1, Fonction::Atn},
    {"int"_L1, Fonction::Int}, {"sgn"_L1, Fonction::Sgn}, {"abs"_L1, Fonction::Abs},
    {"exp"_L1, Fonction::Exp}, {"sin"_L1, Fonction::Sin}, {"cos"_L1, Fonction::Cos},
    {"tan"_L1, Fonction::Tan},
};

const NomFonction *chercherFonction(QStringView nom)
{
    for (const NomFonction &f : Fonctions) {
        if (nom.compare(f.nom, Qt::CaseInsensitive) == 0)
            return &f;
    }
    return nullptr;
}

// Deeper nesting is refused before the native stack could run out.
constexpr int ProfondeurMaximale = 200;

enum class Jeton {
    Fin,
    Nombre,
    Nom,
    Mod,
    Plus,
    Moins,
    Fois,
    Divise,
    DiviseEntier,
    Puissance,
    Egal,
    Different,
    Inferieur,
    Superieur,
    InferieurEgal,
    SuperieurEgal,
    Ouvrante,
    Fermante
};

struct Symbole
{
    QLatin1StringView texte;
    Jeton jeton;
};

// Two-character operators before their one-character prefixes.
constexpr Symbole Symboles[] = {
    {"<>"_L1, Jeton::Different}, {"<="_L1, Jeton::InferieurEgal}, {">="_L1, Jeton::SuperieurEgal},
    {"<"_L1, Jeton::Inferieur},  {">"_L1, Jeton::Superieur},      {"="_L1, Jeton::Egal},
    {"+"_L1, Jeton::Plus},       {"-"_L1, Jeton::Moins},          {"*"_L1, Jeton::Fois},
    {"/"_L1, Jeton::Divise},     {"\\"_L1, Jeton::DiviseEntier},  {"^"_L1, Jeton::Puissance},
    {"("_L1, Jeton::Ouvrante},   {")"_L1, Jeton::Fermante},
};

// Thrown inside the analyser only; evaluer() turns it into its code.
struct ArretSyntaxe
{
    Erreur erreur;
};

bool estChiffre(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool estLettreAscii(QChar c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

// A literal beyond the double range: from_chars leaves the value alone, so tell overflow
// from underflow by the decimal exponent of the first significant digit.
double horsDomaine(std::string_view litteral)
{
    long long chiffresAvantPoint = 0;
    long long premierSignificatif = -1;
    long long rang = 0;
    bool apresPoint = false;
    std::size_t i = 0;
    for (; i < litteral.size(); ++i) {
        const char c = litteral[i];
        if (c == '.') {
            apresPoint = true;
            continue;
        }
        if (c < '0' || c > '9')
            break;
        if (!apresPoint)
            ++chiffresAvantPoint;
        if (c != '0' && premierSignificatif < 0)
            premierSignificatif = rang;
        ++rang;
    }
    if (premierSignificatif < 0)
        return 0.0;
    long long exposant = 0;
    if (i < litteral.size() && (litteral[i] == 'e' || litteral[i] == 'E')) {
        ++i;
        bool negatif = false;
        if (i < litteral.size() && (litteral[i] == '+' || litteral[i] == '-'))
            negatif = litteral[i++] == '-';
        for (; i < litteral.size(); ++i)
            exposant = std::min(exposant * 10 + (litteral[i] - '0'), 1'000'000'000LL);
        if (negatif)
            exposant = -exposant;
    }
    return chiffresAvantPoint - premierSignificatif + exposant > 0
        ? std::numeric_limits<double>::infinity()
        : 0.0;
}

// Decimal text of ASCII digits, point, e and sign to double, correctly rounded and
// independent of the C locale.
double convertirLitteral(QStringView texte)
{
    char local[64];
    std::string long_;
    char *debut = local;
    if (texte.size() > qsizetype(sizeof local)) {
        long_.resize(std::size_t(texte.size()));
        debut = long_.data();
    }
    for (qsizetype i = 0; i < texte.size(); ++i)
        debut[i] = char(texte[i].unicode());
    const char *fin = debut + texte.size();
    double valeur = 0.0;
    const auto [ptr, ec] = std::from_chars(debut, fin, valeur, std::chars_format::general);
    if (ec == std::errc::result_out_of_range)
        return horsDomaine(std::string_view(debut, std::size_t(fin - debut)));
    return valeur;
}

// Round half to even, as the script language does before integer operations.
double arrondiBancaire(double x)
{
    const double r = std::round(x);
    if (std::fabs(x - std::trunc(x)) == 0.5 && std::fmod(r, 2.0) != 0.0)
        return r - std::copysign(1.0, x);
    return r;
}

class Analyseur
{
public:
    explicit Analyseur(QStringView texte)
        : m_texte(texte)
    { }

    Erreur evaluer(double &valeur, QString &nom)
    {
        try {
            avancer();
            const double v = expression(0);
            if (m_jeton != Jeton::Fin)
                throw ArretSyntaxe {Erreur::FinInstructionAttendue};
            if (m_erreur != Erreur::Aucune) {
                nom = m_nomErreur.toString();
                return m_erreur;
            }
            valeur = v;
            return Erreur::Aucune;
        } catch (const ArretSyntaxe &arret) {
            return arret.erreur;
        }
    }

private:
    // Keeps the first run-time error; evaluation goes on to find any syntax error.
    double echec(Erreur erreur, QStringView nom = {})
    {
        if (m_erreur == Erreur::Aucune) {
            m_erreur = erreur;
            m_nomErreur = nom;
        }
        return std::numeric_limits<double>::quiet_NaN();
    }

    double verifier(double v)
    {
        if (std::isnan(v))
            return echec(Erreur::ArgumentIncorrect);
        if (std::isinf(v))
            return echec(Erreur::Depassement);
        return v;
    }

    void avancer()
    {
        const qsizetype n = m_texte.size();
        while (m_pos < n && (m_texte[m_pos] == u' ' || m_texte[m_pos] == u'\t'))
            ++m_pos;
        if (m_pos >= n) {
            m_jeton = Jeton::Fin;
            return;
        }
        const QChar c = m_texte[m_pos];
        if (estChiffre(c) || c == u'.') {
            lireNombre();
            return;
        }
        if (estLettreAscii(c)) {
            const qsizetype debut = m_pos++;
            while (m_pos < n
                   && (estLettreAscii(m_texte[m_pos]) || estChiffre(m_texte[m_pos])
                       || m_texte[m_pos] == u'_'))
                ++m_pos;
            m_nom = m_texte.mid(debut, m_pos - debut);
            m_jeton = m_nom.compare("mod"_L1, Qt::CaseInsensitive) == 0 ? Jeton::Mod : Jeton::Nom;
            return;
        }
        for (const Symbole &symbole : Symboles) {
            if (QChar(symbole.texte.front()) == c && m_texte.mid(m_pos).startsWith(symbole.texte)) {
                m_pos += symbole.texte.size();
                m_jeton = symbole.jeton;
                return;
            }
        }
        throw ArretSyntaxe {Erreur::CaractereNonValide};
    }

    // digits [. digits] [e [+-] digits], at least one digit in the mantissa; a number
    // glued to a letter, a digit or a point is a syntax error.
    void lireNombre()
    {
        const qsizetype n = m_texte.size();
        const qsizetype debut = m_pos;
        qsizetype chiffres = 0;
        while (m_pos < n && estChiffre(m_texte[m_pos])) {
            ++m_pos;
            ++chiffres;
        }
        if (m_pos < n && m_texte[m_pos] == u'.') {
            ++m_pos;
            while (m_pos < n && estChiffre(m_texte[m_pos])) {
                ++m_pos;
                ++chiffres;
            }
        }
        if (chiffres == 0)
            throw ArretSyntaxe {Erreur::Syntaxe};
        if (m_pos < n && (m_texte[m_pos] == u'e' || m_texte[m_pos] == u'E')) {
            ++m_pos;
            if (m_pos < n && (m_texte[m_pos] == u'+' || m_texte[m_pos] == u'-'))
                ++m_pos;
            if (m_pos >= n || !estChiffre(m_texte[m_pos]))
                throw ArretSyntaxe {Erreur::Syntaxe};
            while (m_pos < n && estChiffre(m_texte[m_pos]))
                ++m_pos;
        }
        if (m_pos < n) {
            const QChar c = m_texte[m_pos];
            if (c.isLetterOrNumber() || c == u'_' || c == u'.')
                throw ArretSyntaxe {Erreur::Syntaxe};
        }
        m_nombre = convertirLitteral(m_texte.mid(debut, m_pos - debut));
        if (std::isinf(m_nombre))
            echec(Erreur::Depassement);
        m_jeton = Jeton::Nombre;
    }

    double expression(int profondeur)
    {
        if (profondeur > ProfondeurMaximale)
            throw ArretSyntaxe {Erreur::PileInsuffisante};
        return comparaison(profondeur);
    }

    // Comparisons give the script's booleans: -1 for true, 0 for false.
    double comparaison(int profondeur)
    {
        double gauche = addition(profondeur);
        for (;;) {
            const Jeton op = m_jeton;
            if (op != Jeton::Egal && op != Jeton::Different && op != Jeton::Inferieur
                && op != Jeton::Superieur && op != Jeton::InferieurEgal
                && op != Jeton::SuperieurEgal)
                return gauche;
            avancer();
            const double droite = addition(profondeur);
            const bool vrai = op == Jeton::Egal ? gauche == droite
                : op == Jeton::Different        ? gauche != droite
                : op == Jeton::Inferieur        ? gauche < droite
                : op == Jeton::Superieur        ? gauche > droite
                : op == Jeton::InferieurEgal    ? gauche <= droite
                                                : gauche >= droite;
            gauche = vrai ? -1.0 : 0.0;
        }
    }

    double addition(int profondeur)
    {
        double gauche = modulo(profondeur);
        while (m_jeton == Jeton::Plus || m_jeton == Jeton::Moins) {
            const bool plus = m_jeton == Jeton::Plus;
            avancer();
            const double droite = modulo(profondeur);
            gauche = verifier(plus ? gauche + droite : gauche - droite);
        }
        return gauche;
    }

    // Mod and \ work on operands rounded to the 32-bit integers of the script language.
    bool entier(double x, long long &n)
    {
        const double r = arrondiBancaire(x);
        if (!(r >= -2147483648.0 && r <= 2147483647.0)) {
            echec(std::isnan(x) ? Erreur::ArgumentIncorrect : Erreur::Depassement);
            return false;
        }
        n = static_cast<long long>(r);
        return true;
    }

    double operationEntiere(double gauche, double droite, bool reste)
    {
        long long a = 0;
        long long b = 0;
        if (!entier(gauche, a) || !entier(droite, b))
            return std::numeric_limits<double>::quiet_NaN();
        if (b == 0)
            return echec(Erreur::DivisionParZero);
        const long long r = reste ? a % b : a / b;
        if (r > 2147483647LL)
            return echec(Erreur::Depassement);
        return double(r);
    }

    double modulo(int profondeur)
    {
        double gauche = divisionEntiere(profondeur);
        while (m_jeton == Jeton::Mod) {
            avancer();
            gauche = operationEntiere(gauche, divisionEntiere(profondeur), true);
        }
        return gauche;
    }

    double divisionEntiere(int profondeur)
    {
        double gauche = multiplication(profondeur);
        while (m_jeton == Jeton::DiviseEntier) {
            avancer();
            gauche = operationEntiere(gauche, multiplication(profondeur), false);
        }
        return gauche;
    }

    double multiplication(int profondeur)
    {
        double gauche = unaire(profondeur);
        while (m_jeton == Jeton::Fois || m_jeton == Jeton::Divise) {
            const bool fois = m_jeton == Jeton::Fois;
            avancer();
            const double droite = unaire(profondeur);
            if (fois)
                gauche = verifier(gauche * droite);
            else if (droite == 0.0)
                gauche = echec(Erreur::DivisionParZero);
            else
                gauche = verifier(gauche / droite);
        }
        return gauche;
    }

    // Signs are counted in a loop, so a long run of them costs no stack.
    bool signes()
    {
        bool negatif = false;
        while (m_jeton == Jeton::Moins || m_jeton == Jeton::Plus) {
            if (m_jeton == Jeton::Moins)
                negatif = !negatif;
            avancer();
        }
        return negatif;
    }

    // Unary minus binds looser than ^: -2^2 is -4.
    double unaire(int profondeur)
    {
        const bool negatif = signes();
        const double v = puissance(profondeur);
        return negatif ? -v : v;
    }

    // ^ is left-associative; its right operand may carry a sign: 2^ -1.
    double puissance(int profondeur)
    {
        double gauche = primaire(profondeur);
        while (m_jeton == Jeton::Puissance) {
            avancer();
            const bool negatif = signes();
            double droite = primaire(profondeur);
            if (negatif)
                droite = -droite;
            gauche = verifier(std::pow(gauche, droite));
        }
        return gauche;
    }

    double primaire(int profondeur)
    {
        switch (m_jeton) {
        case Jeton::Nombre: {
            const double v = m_nombre;
            avancer();
            return v;
        }
        case Jeton::Ouvrante: {
            avancer();
            const double v = expression(profondeur + 1);
            fermante();
            return v;
        }
        case Jeton::Nom:
            return nom(profondeur);
        default:
            throw ArretSyntaxe {Erreur::ExpressionAttendue};
        }
    }

    void fermante()
    {
        if (m_jeton != Jeton::Fermante)
            throw ArretSyntaxe {Erreur::ParentheseAttendue};
        avancer();
    }

    double nom(int profondeur)
    {
        const QStringView nom = m_nom;
        const NomFonction *fonction = chercherFonction(nom);
        avancer();
        if (m_jeton != Jeton::Ouvrante) {
            return echec(fonction ? Erreur::NombreArguments : Erreur::VariableNonDefinie, nom);
        }
        avancer();
        if (m_jeton == Jeton::Fermante) {
            avancer();
            return echec(fonction ? Erreur::NombreArguments : Erreur::TypeIncompatible, nom);
        }
        const double x = expression(profondeur + 1);
        fermante();
        if (!fonction)
            return echec(Erreur::TypeIncompatible, nom);
        return appliquer(fonction->fonction, x);
    }

    double appliquer(Fonction fonction, double x)
    {
        if (std::isnan(x))
            return x;
        switch (fonction) {
        case Fonction::Sqr:
            return x < 0 ? echec(Erreur::ArgumentIncorrect) : std::sqrt(x);
        case Fonction::Log:
            return x <= 0 ? echec(Erreur::ArgumentIncorrect) : verifier(std::log(x));
        case Fonction::Atn:
            return std::atan(x);
        case Fonction::Int:
            return std::floor(x);
        case Fonction::Sgn:
            return x > 0 ? 1.0 : (x < 0 ? -1.0 : 0.0);
        case Fonction::Abs:
            return std::fabs(x);
        case Fonction::Exp:
            return verifier(std::exp(x));
        case Fonction::Sin:
            return verifier(std::sin(x));
        case Fonction::Cos:
            return verifier(std::cos(x));
        case Fonction::Tan:
            return verifier(std::tan(x));
        }
        return x;
    }

    QStringView m_texte;
    qsizetype m_pos = 0;
    Jeton m_jeton = Jeton::Fin;
    double m_nombre = 0.0;
    QStringView m_nom;
    Erreur m_erreur = Erreur::Aucune;
    QStringView m_nomErreur;
};

// The cell shows 0, never -0.
double sansZeroNegatif(double v)
{
    return v == 0.0 ? 0.0 : v;
}

Erreur evaluer(QStringView texte, double &valeur, QString &nom)
{
    Analyseur analyseur(texte);
    return analyseur.evaluer(valeur, nom);
}

// ---------------------------------------------------------------------------------------
// Preparation of the user's text.
// ---------------------------------------------------------------------------------------

struct Remplacement
{
    QLatin1StringView motif;
    QLatin1StringView par;
};

// Doubled marks that users type by slip; each rule runs until its pattern is gone, once
// over the list in this order (so "----" ends as "++").
constexpr Remplacement Reductions[] = {
    {".."_L1, "."_L1}, {"**"_L1, "*"_L1}, {"//"_L1, "/"_L1}, {"++"_L1, "+"_L1},
    {"--"_L1, "+"_L1}, {"+-"_L1, "-"_L1}, {"-+"_L1, "-"_L1},
};

// French names to the evaluator's. sh, ch and log paste text with no argument in it, so
// they fail to evaluate; the workbooks' users have always seen them fail.
constexpr Remplacement NomsFrancais[] = {
    {"rac("_L1, "Sqr("_L1},
    {"ln("_L1, "Log("_L1},
    {"log("_L1, "Log( / Log(10))"_L1},
    {"atn("_L1, "Atn("_L1},
    {"int("_L1, "Int("_L1},
    {"sgn("_L1, "Sgn("_L1},
    {"sh("_L1, "(Exp( - Exp(-1 * )) / 2"_L1},
    {"ch("_L1, "(Exp( + Exp(-1 * )) / 2"_L1},
};

// Words a letter may start. "int3" keeps "int" itself out.
constexpr QLatin1StringView MotsAdmis[] = {
    "^"_L1,   "/"_L1,   "*"_L1,   "<="_L1,  ">="_L1,  "="_L1,    ">"_L1,    "<"_L1,   "cos"_L1,
    "sin"_L1, "tan"_L1, "rac"_L1, "exp"_L1, "ln"_L1,  "log"_L1,  "abs"_L1,  "atn"_L1, "int3"_L1,
    "sgn"_L1, "sh"_L1,  "ch"_L1,  "th"_L1,  "mod"_L1, "asin"_L1, "acos"_L1,
};

void normaliser(QString &texte)
{
    texte.replace(u',', u'.');
    texte = texte.trimmed();
    texte.remove(SeparateurMilliers);
    for (const Remplacement &r : Reductions) {
        while (texte.contains(r.motif))
            texte.replace(r.motif, r.par);
    }
}

// A plain number ("-12.5", ".5", "5."): read directly, the common case of a recalculation.
bool nombreSimple(QStringView texte, double &valeur)
{
    const qsizetype n = texte.size();
    if (n == 0 || n > 64)
        return false;
    qsizetype i = texte[0] == u'-' ? 1 : 0;
    const qsizetype debut = i;
    bool point = false;
    bool chiffre = false;
    for (; i < n; ++i) {
        const QChar c = texte[i];
        if (estChiffre(c)) {
            chiffre = true;
        } else if (c == u'.' && !point) {
            point = true;
        } else {
            return false;
        }
    }
    if (!chiffre)
        return false;
    const double v = convertirLitteral(texte.mid(debut));
    if (std::isinf(v))
        return false; // let the evaluator report the overflow
    valeur = sansZeroNegatif(debut ? -v : v);
    return true;
}

// True when the lower-case text at `position` begins with `mot`.
bool commencePar(QStringView texte, qsizetype position, QLatin1StringView mot)
{
    if (texte.size() - position < mot.size())
        return false;
    for (qsizetype k = 0; k < mot.size(); ++k) {
        if (texte[position + k].toLower() != QChar(mot[k]))
            return false;
    }
    return true;
}

// A letter passes when a word of the table starts there (the word is skipped) or when it
// is the first letter of one: the "e" of "2e3" passes, the "n" of "int(" does not.
bool lettresAdmises(QStringView texte)
{
    qsizetype i = 0;
    while (i < texte.size()) {
        const QChar c = texte[i];
        if (!c.isLetter()) {
            ++i;
            continue;
        }
        qsizetype saut = 0;
        for (QLatin1StringView mot : MotsAdmis) {
            if (commencePar(texte, i, mot)) {
                saut = mot.size();
                break;
            }
        }
        if (saut == 0) {
            const QChar minuscule = c.toLower();
            for (QLatin1StringView mot : MotsAdmis) {
                if (QChar(mot.front()) == minuscule) {
                    saut = 1;
                    break;
                }
            }
        }
        if (saut == 0)
            return false;
        i += saut;
    }
    return true;
}

bool syntaxeAdmise(QStringView texte)
{
    const QLatin1StringView operateurs("-+*/^");
    const QLatin1StringView interditsEnTete("+*/^");
    if (!texte.isEmpty() && interditsEnTete.contains(texte[0]))
        return false;
    for (qsizetype i = 1; i < texte.size(); ++i) {
        if (operateurs.contains(texte[i]) && operateurs.contains(texte[i - 1]))
            return false;
    }
    return true;
}

// "2(3+1)", "(1+2)3", "2sin(1)": the product the user meant. "7mod2" keeps its operator.
QString produitsImplicites(const QString &texte)
{
    QString resultat;
    qsizetype copie = 0;
    for (qsizetype i = 1; i < texte.size(); ++i) {
        const QChar avant = texte[i - 1];
        const QChar c = texte[i];
        bool inserer = false;
        if (avant == u')' || estChiffre(avant)) {
            if (c == u'(')
                inserer = true;
            else if (c.isLetter())
                inserer = !commencePar(texte, i, "mod"_L1);
        }
        if (avant == u')' && estChiffre(c))
            inserer = true;
        if (inserer) {
            if (resultat.isNull())
                resultat.reserve(texte.size() + 8);
            resultat.append(QStringView(texte).mid(copie, i - copie));
            resultat.append(u'*');
            copie = i;
        }
    }
    if (resultat.isNull())
        return texte;
    resultat.append(QStringView(texte).mid(copie));
    return resultat;
}

ResultatCalcul echec(const QString &message)
{
    return ResultatCalcul {std::nullopt, message};
}

ResultatCalcul evaluerTexte(QString &expression)
{
    normaliser(expression);

    double valeur = 0.0;
    if (nombreSimple(expression, valeur))
        return ResultatCalcul {valeur, {}};

    if (!lettresAdmises(expression))
        return echec(QStringLiteral("Caractère non compatible."));
    if (expression.count(u'(') != expression.count(u')'))
        return echec(QStringLiteral("Erreur du nombre de parenthèses, calcul erroné"));
    if (expression.isEmpty())
        return {};
    if (!syntaxeAdmise(expression))
        return echec(QStringLiteral("Expression invalide : opérateurs ou syntaxe incorrecte."));

    QString texte = produitsImplicites(expression).toLower();
    // The implicit product put a "*" before the exponent of "2e3"; take it back.
    if (texte.contains("*e"_L1))
        texte.replace("*e"_L1, "e"_L1);
    for (const Remplacement &r : NomsFrancais) {
        if (texte.contains(r.motif))
            texte.replace(r.motif, r.par);
    }

    QString nom;
    const Erreur erreur = evaluer(texte, valeur, nom);
    if (erreur != Erreur::Aucune)
        return echec(QStringLiteral("Erreur d'évaluation : ") + description(erreur, nom));
    return ResultatCalcul {sansZeroNegatif(valeur), {}};
}

} // namespace

ResultatCalcul EvaluerOperation(QString &expression)
{
    try {
        return evaluerTexte(expression);
    } catch (const std::bad_alloc &) {
        return echec(QStringLiteral("Erreur d'évaluation : Mémoire insuffisante"));
    } catch (...) {
        return echec(QStringLiteral("Erreur d'évaluation : Erreur inattendue"));
    }
}

std::optional<double> Calculatrice(QString &expression, UserInterface &ui)
{
    try {
        const ResultatCalcul resultat = EvaluerOperation(expression);
        if (!resultat.message.isEmpty()) {
            ui.message(resultat.message, MessageArret, QStringLiteral(" Thermique."));
            return std::nullopt;
        }
        return resultat.valeur;
    } catch (...) {
        // The user interface failed to show the message: the result stays empty.
        return std::nullopt;
    }
}

bool EvaluationSilencieuse(const QString &texte, double &valeur)
{
    valeur = 0.0;
    try {
        QString t = texte.trimmed();
        if (t.isEmpty())
            return false;
        const QLatin1StringView admis("0123456789+-*/()., ");
        for (QChar c : std::as_const(t)) {
            if (!admis.contains(c))
                return false;
        }
        t.replace(u',', u'.');
        int profondeur = 0;
        for (QChar c : std::as_const(t)) {
            if (c == u'(')
                ++profondeur;
            else if (c == u')' && --profondeur < 0)
                return false;
        }
        if (profondeur != 0)
            return false;
        double v = 0.0;
        QString nom;
        if (evaluer(t, v, nom) != Erreur::Aucune)
            return false;
        valeur = sansZeroNegatif(v);
        return true;
    } catch (...) {
        valeur = 0.0;
        return false;
    }
}

} // namespace thermique
