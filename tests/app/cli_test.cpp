#include "cli.h"

#include <gtest/gtest.h>

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
    const Sortie f = executer({QStringLiteral("format"), QStringLiteral("1234567.891"),
                               QStringLiteral("#,##0.00")});
    EXPECT_EQ(f.code, 0);
    EXPECT_EQ(f.out, QStringLiteral("1\u00A0234\u00A0567.89\n"));

    for (const QStringList &args : {QStringList{}, QStringList{QStringLiteral("nope")},
                                    QStringList{QStringLiteral("eval")},
                                    QStringList{QStringLiteral("format"), QStringLiteral("1")}}) {
        const Sortie s = executer(args);
        EXPECT_EQ(s.code, 2) << qPrintable(args.join(' '));
        EXPECT_TRUE(s.err.startsWith(QStringLiteral("Usage")));
    }
}
