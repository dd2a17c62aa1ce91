#include "cli.h"
#include "workbook/fichierprojet.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

using namespace thermique;

namespace {

struct Sortie
{
    int code;
    QString out;
    QString err;
};

Sortie executer(const QStringList &args)
{
    QString out, err;
    QTextStream so(&out), se(&err);
    const int code = ExecuterCli(args, QStringLiteral("/nonexistent"), so, se);
    return {code, out, err};
}

} // namespace

TEST(Cli, EvalPrintsTheValueOrTheMessage)
{
    struct Cas
    {
        QString expression;
        int code;
        QString out;
        QString err;
    };
    const Cas cas[] = {
        {"2.00*1.25-(0.88*1.08)*2", 0, "0.5992\n", ""},
        {"2,5*3", 0, "7.5\n", ""},
        {"1/3", 0, "0.333333333333333\n", ""},
        {"", 0, "\n", ""},
        {"2x3", 1, "", "[16]  Thermique.: Caractère non compatible.\n"},
        {"(1+2", 1, "", "[16]  Thermique.: Erreur du nombre de parenthèses, calcul erroné\n"},
    };
    for (const Cas &c : cas) {
        const Sortie s = executer({QStringLiteral("eval"), c.expression});
        EXPECT_EQ(s.code, c.code) << qPrintable(c.expression);
        EXPECT_EQ(s.out, c.out) << qPrintable(c.expression);
        EXPECT_EQ(s.err, c.err) << qPrintable(c.expression);
    }
}

TEST(Cli, FormatAndUsage)
{
    const Sortie f = executer(
        {QStringLiteral("format"), QStringLiteral("1234567.891"), QStringLiteral("#,##0.00")});
    EXPECT_EQ(f.code, 0);
    EXPECT_EQ(f.out, QStringLiteral("1\u00A0234\u00A0567.89\n"));

    for (const QStringList &args : {QStringList {}, QStringList {QStringLiteral("nope")},
                                    QStringList {QStringLiteral("eval")},
                                    QStringList {QStringLiteral("format"), QStringLiteral("1")}}) {
        const Sortie s = executer(args);
        EXPECT_EQ(s.code, 2) << qPrintable(args.join(' '));
        EXPECT_TRUE(s.err.startsWith(QStringLiteral("Usage")));
    }
}

namespace {

void ecrireEtude(const QString &chemin, const Study &e)
{
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(EcrireEtude(e).dep);
}

} // namespace

TEST(Cli, DumpWritesOneLineARowWithEscapes)
{
    QTemporaryDir d;
    Study e;
    e.flexGrid[0] = Grid(2, 3);
    e.flexGrid[0].setText(0, 0, QStringLiteral("Toulon\r\n83000"));
    e.flexGrid[0].setText(0, 2, QStringLiteral("a\tb"));
    e.flexGrid[0].setText(1, 1, QStringLiteral("Séjour"));
    e.flexGrid3[13].setText(0, 0, QStringLiteral("jamais écrit"));
    e.flexGrid3[2].setText(1, 2, QStringLiteral("Fioul"));
    ecrireEtude(d.filePath("e.dep"), e);

    const Sortie s = executer({"dump", d.filePath("e.dep"), "--grid", "sheet:0"});
    EXPECT_EQ(s.code, 0);
    EXPECT_EQ(s.out, QStringLiteral("Toulon\\n83000\t\ta\\tb\n\tSéjour\t\n"));
    EXPECT_TRUE(executer({"dump", d.filePath("e.dep"), "--grid", "conso:2"})
                    .out.section('\n', 1, 1)
                    .endsWith(QStringLiteral("\tFioul")));

    struct Cas
    {
        QStringList args;
        int code;
    };
    const Cas erreurs[] = {
        {{"dump", d.filePath("e.dep"), "--grid", "sheet:13"}, 2},
        {{"dump", d.filePath("e.dep"), "--grid", "feuille:1"}, 2},
        {{"dump", d.filePath("e.dep")}, 2},
        {{"dump", d.filePath("absent.dep"), "--grid", "sheet:0"}, 1},
    };
    for (const Cas &c : erreurs)
        EXPECT_EQ(executer(c.args).code, c.code) << qPrintable(c.args.join(' '));
}

TEST(Cli, RecalcSavesTheStudyItOpened)
{
    QTemporaryDir d;
    Study e;
    e.flexGrid[0].setText(9, 13, QStringLiteral("Toulon"));
    e.flexGrid[0].setText(12, 13, QStringLiteral("Maison individuelle."));
    e.flexGrid[0].setText(13, 13, QStringLiteral("(b) Exposée."));
    e.flexGrid[1].setText(5, 1, QStringLiteral("Mur extérieur"));
    e.flexGrid[1].setText(5, 11, QStringLiteral("0.360"));
    ecrireEtude(d.filePath("e.dep"), e);
    const Sortie s = executer(
        {"--dossier", d.path(), "recalc", d.filePath("e.dep"), "-o", d.filePath("sortie.dep")});
    EXPECT_EQ(s.code, 0) << qPrintable(s.err);
    const Sortie relue = executer({"dump", d.filePath("sortie.dep"), "--grid", "sheet:0"});
    EXPECT_EQ(relue.code, 0);
    EXPECT_TRUE(relue.out.contains(QStringLiteral("Maison individuelle.")));
    EXPECT_TRUE(QFile::exists(d.filePath("sortie.Pc1")));

    // A damaged file is reported.
    QFile f(d.filePath("abime.dep"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("0,0,0,0\r\n2000000000,2,0,0\r\n");
    f.close();
    EXPECT_EQ(executer({"--dossier", d.path(), "recalc", d.filePath("abime.dep")}).code, 1);
}
