#include "workbook/records.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <QStringList>

using namespace thermique;

TEST(Records, WritesTheClassicLayout)
{
    RecordWriter w;
    w.single(1200).single(-60).single(8.25f).single(12000.5f).endRecord();
    w.string(QStringLiteral("Béton, plein")).endRecord();
    w.booleanRecord(true);
    w.booleanRecord(false);
    w.integer(-32768).integer(2147483647).endRecord();
    w.number(0.1 + 0.2).endRecord();
    w.stringRecord(QString());
    EXPECT_EQ(w.text(),
              QStringLiteral("1200,-60,8.25,12000.5\r\n\"Béton, plein\"\r\n#TRUE#\r\n"
                             "#FALSE#\r\n-32768,2147483647\r\n0.3\r\n\"\"\r\n"));
    const QByteArray b = w.bytes();
    EXPECT_TRUE(b.contains("\"B\xE9ton, plein\""));
}

TEST(Records, Windows1252RoundTripAndRepairsAreNeeded)
{
    const QString texte = QStringLiteral("é è à ç ù § € ° ² ³ œ « » — ‰");
    EXPECT_EQ(DecoderWindows1252(EncoderWindows1252(texte)), texte);
    EXPECT_EQ(EncoderWindows1252(QStringLiteral("§é€")), QByteArray("\xA7\xE9\x80"));
    // Greek letters do not exist in the code page: they come back as '?'.
    EXPECT_EQ(EncoderWindows1252(QStringLiteral("θλΔ")), QByteArray("???"));
}

TEST(Records, ReadsBackEveryKindOfValue)
{
    RecordWriter w;
    const QString multi = QStringLiteral("Ligne 1\r\nLigne 2, avec virgule\r\n§ accentué");
    w.stringRecord(multi);
    w.string(QStringLiteral("a,b")).integer(42).number(-1.5).boolean(true).endRecord();
    w.stringRecord(QStringLiteral("  blancs gardés  "));
    w.stringRecord(QStringLiteral("12§2*3"));
    w.single(8.25f).single(1e20f).endRecord();

    RecordReader r(w.bytes());
    EXPECT_EQ(r.readString(), multi);
    EXPECT_EQ(r.readString(), QStringLiteral("a,b"));
    EXPECT_EQ(r.readInteger(), 42);
    EXPECT_EQ(r.readNumber(), -1.5);
    EXPECT_EQ(r.readBoolean(), true);
    EXPECT_EQ(r.readString(), QStringLiteral("  blancs gardés  "));
    EXPECT_EQ(r.readString(), QStringLiteral("12§2*3"));
    EXPECT_FLOAT_EQ(float(r.number()), 8.25f);
    EXPECT_FLOAT_EQ(float(r.number()), 1e20f);
    EXPECT_TRUE(r.ok());
    EXPECT_TRUE(r.atEnd());
    EXPECT_FALSE(r.readString().has_value());
    EXPECT_FALSE(r.ok());
}

TEST(Records, BareFieldsAndLineEnds)
{
    struct Cas
    {
        const char *donnees;
        QStringList attendus;
    };
    const Cas cas[] = {
        {"a,b,c\r\n", {"a", "b", "c"}},
        {"  12 , 13\n14\r15", {"12", "13", "14", "15"}},
        {"\"x\"  ,\"y\"\r\n", {"x", "y"}},
        {"\"after\"junk,next\r\n", {"after", "next"}},
        {",\r\n", {"", ""}},
        {"\"open string\r\nto the end", {"open string\r\nto the end"}},
    };
    for (const Cas &c : cas) {
        RecordReader r(QByteArray(c.donnees));
        QStringList lus;
        while (auto s = r.readString())
            lus << *s;
        EXPECT_EQ(lus, c.attendus) << c.donnees;
    }
}

TEST(Records, BadValuesSetTheReaderInFailure)
{
    struct Cas
    {
        const char *donnees;
        qint64 min, max;
    };
    const Cas cas[] = {
        {"abc\r\n", INT32_MIN, INT32_MAX},   {"2000000000\r\n", 0, 100000}, {"-5\r\n", 0, 10},
        {"1e400\r\n", INT32_MIN, INT32_MAX}, {"", INT32_MIN, INT32_MAX},
    };
    for (const Cas &c : cas) {
        RecordReader r(QByteArray(c.donnees));
        EXPECT_FALSE(r.readInteger(c.min, c.max).has_value()) << c.donnees;
        EXPECT_FALSE(r.ok());
        // Once failed, everything after fails too, so a truncated block is detected once.
        EXPECT_FALSE(r.readString().has_value());
    }
    RecordReader r(QByteArray("#TRUE#,7,#FALSE#,maybe\r\n"));
    EXPECT_EQ(r.readBoolean(), true);
    EXPECT_EQ(r.readBoolean(), true);
    EXPECT_EQ(r.readBoolean(), false);
    EXPECT_FALSE(r.readBoolean().has_value());
}

TEST(Records, RandomBytesNeverCrashOrLoop)
{
    QRandomGenerator gen(1234);
    for (int essai = 0; essai < 300; ++essai) {
        QByteArray b(int(gen.bounded(200)), Qt::Uninitialized);
        for (char &c : b)
            c = "\",\r\n #TRUEFALS0123456789.-ab"[gen.bounded(27)];
        RecordReader r(b);
        int lectures = 0;
        while (r.ok() && lectures < 1000) {
            switch (lectures % 4) {
            case 0:
                r.readString();
                break;
            case 1:
                r.readNumber();
                break;
            case 2:
                r.readBoolean();
                break;
            default:
                r.readInteger();
                break;
            }
            ++lectures;
        }
        // Each read consumes at least one character, so the data runs out.
        EXPECT_LE(lectures, b.size() + 1);
    }
}
