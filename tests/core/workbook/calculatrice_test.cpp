#include "workbook/calculatrice.h"
#include "workbook/userinterface.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <random>
#include <vector>

using namespace thermique;

namespace {

struct CasValeur
{
    const char *texte;
    double attendu;
};

struct CasMessage
{
    const char *texte;
    const char *message;
};

// Records the boxes shown; every other request is refused.
class InterfaceEnregistreuse : public UserInterface
{
public:
    struct Boite
    {
        QString texte;
        int style;
        QString titre;
    };
    std::vector<Boite> boites;

    int message(const QString &texte, int style, const QString &titre) override
    {
        boites.push_back({texte, style, titre});
        return ReponseOk;
    }
    QString fichierOuvrir(const QString &, const QString &, const QString &) override { return {}; }
    QString fichierEnregistrer(const QString &, const QString &, const QString &,
                               const QString &) override
    {
        return {};
    }
    void messageAttente(const QString &) override { }
    void fermerMessageAttente() override { }
    void ouvrirDocument(const QString &) override { }
};

ResultatCalcul evaluer(const QString &texte)
{
    QString copie = texte;
    return EvaluerOperation(copie);
}

const QString Evaluation = QStringLiteral("Erreur d'évaluation : ");

void verifierValeurs(const std::vector<CasValeur> &cas)
{
    for (const CasValeur &c : cas) {
        SCOPED_TRACE(c.texte);
        const ResultatCalcul r = evaluer(QString::fromUtf8(c.texte));
        EXPECT_EQ(r.message, QString());
        ASSERT_TRUE(r.valeur.has_value());
        EXPECT_DOUBLE_EQ(*r.valeur, c.attendu);
    }
}

void verifierMessages(const std::vector<CasMessage> &cas)
{
    for (const CasMessage &c : cas) {
        SCOPED_TRACE(c.texte);
        const ResultatCalcul r = evaluer(QString::fromUtf8(c.texte));
        EXPECT_FALSE(r.valeur.has_value());
        EXPECT_EQ(r.message, QString::fromUtf8(c.message));
    }
}

} // namespace

TEST(Calculatrice, ValeursDesSaisiesCourantes)
{
    verifierValeurs({{"12.50", 12.5},
                     {".5", 0.5},
                     {"5.", 5},
                     {"-7", -7},
                     {"2,5*3", 7.5},
                     {"1..5", 1.5},
                     {"2--3", 5},
                     {"2+-3", -1},
                     {"2-+3", -1},
                     {"-5+2", -3},
                     {"2e3", 2000},
                     {"2E3", 2000},
                     {"1.5e-3", 0.0015},
                     {"2e+3", 2000},
                     {"1\u00A0000", 1000},
                     {"  1\u00A0234,5  ", 1234.5},
                     {"2.00*1.25-(0.88*1.08)*2", 2.00 * 1.25 - (0.88 * 1.08) * 2},
                     {" 3 *\t4 ", 12}});
}

TEST(Calculatrice, PrioritesEtAssociativite)
{
    verifierValeurs({{"2+3*4", 14},
                     {"10-4-3", 3},
                     {"100/10/5", 2},
                     {"2^3^2", 64},
                     {"2*3^2", 18},
                     {"-2^2", -4},
                     {"(-2)^2", 4},
                     {"2^ -1", 0.5},
                     {"- 2 * 3", -6},
                     {"1 - - 1", 2},
                     {"7 mod 3", 1},
                     {"-7 mod 3", -1},
                     {"7 mod -3", 1},
                     {"1 + 7 mod 3", 2},
                     {"7 mod 3*2", 1},
                     {"7\\2", 3},
                     {"-7\\2", -3},
                     {"7\\2*2", 1},
                     {"10\\3 mod 2", 1},
                     // Mod and \ round half to even first.
                     {"6.5\\1", 6},
                     {"7.5\\1", 8},
                     {"5.5 mod 4", 2},
                     {"4.5 mod 3", 1},
                     {"3>2", -1},
                     {"3<2", 0},
                     {"2>=2", -1},
                     {"2<>2", 0},
                     {"1+2=3", -1},
                     {"1<2<3", -1}});
}

TEST(Calculatrice, ProduitsImplicitesEtFonctions)
{
    verifierValeurs({{"2(3+1)", 8},
                     {"(1+2)3", 9},
                     {"(2)(3)", 6},
                     {"2(3)(4)", 24},
                     {"2abs(-3)", 6},
                     {"(5)mod 3", 2},
                     {"rac(16)", 4},
                     {"Rac(9)", 3},
                     {"ln(1)", 0},
                     {"abs(-2.5)", 2.5},
                     {"sgn(0)", 0},
                     {"exp(0)", 1},
                     {"cos(0)", 1},
                     {"sgn(-4)", -1},
                     {"atn(1)*4", std::numbers::pi},
                     {"tan(atn(2))", 2},
                     {"rac(abs(-16))+1", 5},
                     {"exp (1)", std::exp(1.0)}});
}

TEST(Calculatrice, MessagesDesEtapesDePreparation)
{
    verifierMessages({{"2x3", "Caractère non compatible."},
                      {"int(2.5)", "Caractère non compatible."},
                      {"2é", "Caractère non compatible."},
                      {"(1+2", "Erreur du nombre de parenthèses, calcul erroné"},
                      {"1+2)", "Erreur du nombre de parenthèses, calcul erroné"},
                      {"+5", "Expression invalide : opérateurs ou syntaxe incorrecte."},
                      {"^2", "Expression invalide : opérateurs ou syntaxe incorrecte."},
                      {"2*-3", "Expression invalide : opérateurs ou syntaxe incorrecte."},
                      {"2^-1", "Expression invalide : opérateurs ou syntaxe incorrecte."},
                      {"2----3", "Expression invalide : opérateurs ou syntaxe incorrecte."},
                      // The letter check comes before the parentheses count.
                      {"(x", "Caractère non compatible."}});
}

TEST(Calculatrice, MessagesDEvaluation)
{
    verifierMessages(
        {{"1/0", "Erreur d'évaluation : Division par zéro"},
         {"5 mod 0", "Erreur d'évaluation : Division par zéro"},
         {"5\\0.4", "Erreur d'évaluation : Division par zéro"},
         {"log(10)", "Erreur d'évaluation : Expression attendue"},
         {"sh(1)", "Erreur d'évaluation : Expression attendue"},
         {"2*", "Erreur d'évaluation : Expression attendue"},
         {"()", "Erreur d'évaluation : Expression attendue"},
         {"2 3", "Erreur d'évaluation : Fin d'instruction attendue"},
         {"(1))(", "Erreur d'évaluation : Fin d'instruction attendue"},
         {"2 sgn(-4)", "Erreur d'évaluation : Fin d'instruction attendue"},
         {"(1 2)", "Erreur d'évaluation : ')' attendu"},
         {"th(1)", "Erreur d'évaluation : Type incompatible: 'th'"},
         {"asin(1)", "Erreur d'évaluation : Type incompatible: 'asin'"},
         {"a", "Erreur d'évaluation : Variable non définie: 'a'"},
         {"rac(-1)", "Erreur d'évaluation : Argument ou appel de procédure incorrect"},
         {"ln(0)", "Erreur d'évaluation : Argument ou appel de procédure incorrect"},
         {"(-8)^(1/3)", "Erreur d'évaluation : Argument ou appel de procédure incorrect"},
         {"10^400", "Erreur d'évaluation : Dépassement de capacité"},
         {"exp(1000)", "Erreur d'évaluation : Dépassement de capacité"},
         {"1e999", "Erreur d'évaluation : Dépassement de capacité"},
         {"1e308*10", "Erreur d'évaluation : Dépassement de capacité"},
         {"3000000000 mod 2", "Erreur d'évaluation : Dépassement de capacité"},
         {"2#3", "Erreur d'évaluation : Caractère non valide"},
         {"$1", "Erreur d'évaluation : Caractère non valide"},
         {"1&2", "Erreur d'évaluation : Caractère non valide"},
         {"1'", "Erreur d'évaluation : Caractère non valide"},
         {"1.2.3", "Erreur d'évaluation : Erreur de syntaxe"},
         {"2e", "Erreur d'évaluation : Erreur de syntaxe"},
         {"7mod2", "Erreur d'évaluation : Erreur de syntaxe"},
         // "*e" is folded back into an exponent, even when typed.
         {"2exp(1)", "Erreur d'évaluation : Erreur de syntaxe"},
         {"2*exp(1)", "Erreur d'évaluation : Erreur de syntaxe"},
         // A syntax error wins over a run-time error met before it.
         {"1/0 2", "Erreur d'évaluation : Fin d'instruction attendue"},
         // The first run-time error is the one reported.
         {"a+1/0", "Erreur d'évaluation : Variable non définie: 'a'"},
         {"1/0+a", "Erreur d'évaluation : Division par zéro"}});
}

TEST(Calculatrice, TexteVideSansMessage)
{
    for (const QString &texte : {QString(), QStringLiteral("   "), QStringLiteral("\u00A0")}) {
        const ResultatCalcul r = evaluer(texte);
        EXPECT_FALSE(r.valeur.has_value());
        EXPECT_TRUE(r.message.isEmpty());
    }
}

TEST(Calculatrice, FormeNormaleRendueAuDemandeur)
{
    const struct
    {
        const char *saisie;
        const char *normale;
    } cas[] = {
        {"2,5*3", "2.5*3"},
        {"  1\u00A0000  ", "1000"},
        {"1...5", "1.5"},
        {"2***3", "2*3"},
        {"6//2", "6/2"},
        {"2+++3", "2+3"},
        {"2--3", "2+3"},
        {"2---3", "2-3"},
        // Each rule runs once in its turn: "++" made by "--" stays.
        {"2----3", "2++3"},
        {"2+-+3", "2-3"},
        {"2-+-3", "2--3"},
        {",,5", ".5"},
        // Implicit products and case are the evaluator's business, not the stored text's.
        {"2(3)", "2(3)"},
        {"Rac(9)", "Rac(9)"},
    };
    for (const auto &c : cas) {
        SCOPED_TRACE(c.saisie);
        QString texte = QString::fromUtf8(c.saisie);
        EvaluerOperation(texte);
        EXPECT_EQ(texte, QString::fromUtf8(c.normale));
    }
}

TEST(Calculatrice, PasDeZeroNegatif)
{
    for (const char *texte : {"-0", "0* -1", "-0.0"}) {
        SCOPED_TRACE(texte);
        const ResultatCalcul r = evaluer(QString::fromUtf8(texte));
        ASSERT_TRUE(r.valeur.has_value());
        EXPECT_EQ(*r.valeur, 0.0);
        EXPECT_FALSE(std::signbit(*r.valeur));
    }
}

TEST(Calculatrice, AfficheLEchecEtRendUnResultatVide)
{
    InterfaceEnregistreuse ui;
    QString texte = QStringLiteral("1/0");
    EXPECT_FALSE(Calculatrice(texte, ui).has_value());
    ASSERT_EQ(ui.boites.size(), 1u);
    EXPECT_EQ(ui.boites[0].texte, Evaluation + QStringLiteral("Division par zéro"));
    EXPECT_EQ(ui.boites[0].style, 16);
    EXPECT_EQ(ui.boites[0].titre, QStringLiteral(" Thermique."));

    ui.boites.clear();
    texte = QStringLiteral("2,5*3");
    const std::optional<double> v = Calculatrice(texte, ui);
    ASSERT_TRUE(v.has_value());
    EXPECT_DOUBLE_EQ(*v, 7.5);
    EXPECT_EQ(texte, QStringLiteral("2.5*3"));
    EXPECT_TRUE(ui.boites.empty());

    texte = QStringLiteral("  ");
    EXPECT_FALSE(Calculatrice(texte, ui).has_value());
    EXPECT_TRUE(ui.boites.empty());
}

TEST(EvaluationSilencieuse, ArithmetiqueSimpleSeulement)
{
    const struct
    {
        const char *texte;
        bool reussi;
        double valeur;
    } cas[] = {
        {"2+3", true, 5},
        {" 2,5 * 2 ", true, 5},
        {"(1+2)*3", true, 9},
        {"-3", true, -3},
        {"+3", true, 3},
        {"2*-3", true, -6},
        {".5", true, 0.5},
        {"", false, 0},
        {"   ", false, 0},
        {"2x", false, 0},
        {"2^3", false, 0},
        {"rac(4)", false, 0},
        {")(", false, 0},
        {"(1))(", false, 0},
        {"(1", false, 0},
        {"1/0", false, 0},
        {"()", false, 0},
        {"1 2", false, 0},
        // No normalisation and no implicit product here.
        {"1..5", false, 0},
        {"2(3)", false, 0},
        {"1\u00A0000", false, 0},
    };
    for (const auto &c : cas) {
        SCOPED_TRACE(c.texte);
        double valeur = 99;
        EXPECT_EQ(EvaluationSilencieuse(QString::fromUtf8(c.texte), valeur), c.reussi);
        EXPECT_DOUBLE_EQ(valeur, c.valeur);
    }
}

TEST(Robustesse, TextesLongsEtImbrications)
{
    QString somme = QStringLiteral("1");
    for (int i = 1; i < 50000; ++i)
        somme += QStringLiteral("+1");
    ResultatCalcul r = evaluer(somme);
    ASSERT_TRUE(r.valeur.has_value());
    EXPECT_EQ(*r.valeur, 50000);
    double valeur = 0;
    EXPECT_TRUE(EvaluationSilencieuse(somme, valeur));
    EXPECT_EQ(valeur, 50000);

    // Signs are not nesting: a long run of them is fine.
    QString signes = QStringLiteral("- ").repeated(10001) + QStringLiteral("2");
    r = evaluer(signes);
    ASSERT_TRUE(r.valeur.has_value());
    EXPECT_EQ(*r.valeur, -2);

    const auto imbrique = [](int n, const QString &ouvrante) {
        return ouvrante.repeated(n) + QStringLiteral("-1") + QStringLiteral(")").repeated(n);
    };
    const QString pile = Evaluation + QStringLiteral("Espace pile insuffisant");

    r = evaluer(imbrique(200, QStringLiteral("(")));
    ASSERT_TRUE(r.valeur.has_value());
    EXPECT_EQ(*r.valeur, -1);
    EXPECT_EQ(evaluer(imbrique(201, QStringLiteral("("))).message, pile);
    EXPECT_EQ(evaluer(imbrique(10000, QStringLiteral("("))).message, pile);
    EXPECT_EQ(evaluer(imbrique(10000, QStringLiteral("abs("))).message, pile);
    EXPECT_FALSE(EvaluationSilencieuse(imbrique(10000, QStringLiteral("(")), valeur));
    EXPECT_EQ(valeur, 0);

    QString chiffres = QStringLiteral("9").repeated(5000);
    EXPECT_EQ(evaluer(chiffres).message, Evaluation + QStringLiteral("Dépassement de capacité"));
    chiffres = QStringLiteral("0.") + QStringLiteral("0").repeated(5000) + QStringLiteral("1");
    r = evaluer(chiffres);
    ASSERT_TRUE(r.valeur.has_value());
    EXPECT_EQ(*r.valeur, 0);
}

// Random fully parenthesised arithmetic with its value computed alongside: the parser must
// find the same value by either entry point.
TEST(Robustesse, ArbresAleatoiresContreUnCalculIndependant)
{
    std::mt19937 alea(12345);
    struct Expr
    {
        QString texte;
        double valeur;
    };
    std::function<Expr(int)> generer = [&](int profondeur) -> Expr {
        if (profondeur == 0 || alea() % 4 == 0) {
            const int entier = int(alea() % 90) + 1;
            if (alea() % 2)
                return {QString::number(entier), double(entier)};
            return {QString::number(entier) + QStringLiteral(".25"), entier + 0.25};
        }
        const Expr a = generer(profondeur - 1);
        const Expr b = generer(profondeur - 1);
        int op = int(alea() % 4);
        if (op == 3 && b.valeur == 0)
            op = 2;
        const char symboles[] = "+-*/";
        double v = 0;
        switch (op) {
        case 0:
            v = a.valeur + b.valeur;
            break;
        case 1:
            v = a.valeur - b.valeur;
            break;
        case 2:
            v = a.valeur * b.valeur;
            break;
        default:
            v = a.valeur / b.valeur;
            break;
        }
        return {QStringLiteral("( ") + a.texte + QLatin1Char(' ') + QLatin1Char(symboles[op])
                    + QLatin1Char(' ') + b.texte + QStringLiteral(" )"),
                v};
    };
    for (int i = 0; i < 500; ++i) {
        const Expr e = generer(6);
        SCOPED_TRACE(e.texte.toStdString());
        const ResultatCalcul r = evaluer(e.texte);
        ASSERT_TRUE(r.valeur.has_value()) << r.message.toStdString();
        EXPECT_EQ(*r.valeur, e.valeur);
        double valeur = 0;
        ASSERT_TRUE(EvaluationSilencieuse(e.texte, valeur));
        EXPECT_EQ(valeur, *r.valeur);
    }
}

TEST(Robustesse, TextesAleatoires)
{
    const QString alphabet
        = QStringLiteral("0123456789.,+-*/^\\()<>= \u00A0eEmodsincrthlgx#$&'\"é\t");
    // Every failure is one of the known texts (names in quotes vary).
    const QStringList connus = {
        QStringLiteral("Caractère non compatible."),
        QStringLiteral("Erreur du nombre de parenthèses, calcul erroné"),
        QStringLiteral("Expression invalide : opérateurs ou syntaxe incorrecte."),
        Evaluation + QStringLiteral("Division par zéro"),
        Evaluation + QStringLiteral("Erreur de syntaxe"),
        Evaluation + QStringLiteral("')' attendu"),
        Evaluation + QStringLiteral("Expression attendue"),
        Evaluation + QStringLiteral("Fin d'instruction attendue"),
        Evaluation + QStringLiteral("Type incompatible: '"),
        Evaluation + QStringLiteral("Variable non définie: '"),
        Evaluation + QStringLiteral("Nombre d'arguments incorrect"),
        Evaluation + QStringLiteral("Argument ou appel de procédure incorrect"),
        Evaluation + QStringLiteral("Dépassement de capacité"),
        Evaluation + QStringLiteral("Caractère non valide"),
    };
    std::mt19937 alea(2024);
    for (int i = 0; i < 5000; ++i) {
        QString texte;
        const int longueur = int(alea() % 40);
        for (int k = 0; k < longueur; ++k)
            texte += alphabet[qsizetype(alea() % alphabet.size())];
        SCOPED_TRACE(texte.toStdString());

        QString copie = texte;
        const ResultatCalcul r = EvaluerOperation(copie);
        if (r.valeur) {
            EXPECT_TRUE(r.message.isEmpty());
            EXPECT_TRUE(std::isfinite(*r.valeur));
        } else if (copie.isEmpty()) {
            EXPECT_TRUE(r.message.isEmpty());
        } else {
            const bool connu = std::any_of(connus.begin(), connus.end(), [&](const QString &m) {
                return r.message.startsWith(m);
            });
            EXPECT_TRUE(connu) << r.message.toStdString();
        }

        double valeur = 42;
        if (EvaluationSilencieuse(texte, valeur))
            EXPECT_TRUE(std::isfinite(valeur));
        else
            EXPECT_EQ(valeur, 0);
    }
}
