#include "climate/arbremeteo.h"
#include "climate/brouillemet.h"
#include "climate/commandemet.h"
#include "climate/fichiersclimat.h"

#include "workbook/records.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

using namespace thermique;

namespace {

// "Sète.met" as the data folder stores it, worked out by hand from the routine: the key
// is "S83è464t348e404", è counting as 232 in Windows-1252.
const unsigned char seteBrouille[]
    = {0x00, 0xd0, 0x47, 0x8d, 0x3d, 0x05, 0x00, 0x47, 0x03, 0x05, 0x31, 0x56, 0x00, 0x02, 0x04,
       0x63, 0x31, 0x7b, 0x01, 0x46, 0x57, 0x41, 0x18, 0x47, 0x3d, 0x0c, 0x56, 0x1a, 0x04, 0x04,
       0x5a, 0x0b, 0x1d, 0xde, 0x0d, 0x3f, 0x05, 0x44, 0x3a, 0x73, 0x76, 0x55, 0x39, 0x3a};

QByteArray octetsSete()
{
    return QByteArray(reinterpret_cast<const char *>(seteBrouille), sizeof seteBrouille);
}

void ecrire(const QString &chemin, const QByteArray &octets)
{
    QFile f(chemin);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(octets);
}

} // namespace

TEST(BrouilleMet, KeyFromTheNameWithoutExtension)
{
    EXPECT_EQ(CleBrouillage(QStringLiteral("Die.met")), QByteArray("D68i210e303"));
    EXPECT_EQ(CleBrouillage(QStringLiteral("Sète.met")),
              QByteArray("S83\xe8"
                         "464t348e404"));
    EXPECT_TRUE(CleBrouillage(QStringLiteral(".met")).isEmpty());
}

TEST(BrouilleMet, KnownFileDecodedByteForByte)
{
    const QByteArray clair = BrouilleMet(octetsSete(), QStringLiteral("Sète.met"));
    EXPECT_EQ(clair,
              EncoderWindows1252(
                  QStringLiteral("Sète\t34301\t34200\tHérault\t43.40\t3.69\t10\tGN0\r\n")));
    const FicheVille fiche = LireFicheVille(clair);
    EXPECT_EQ(fiche.nom, QStringLiteral("Sète"));
    EXPECT_EQ(fiche.codePostal, QStringLiteral("34200"));
    EXPECT_EQ(fiche.departement(), 34);
    EXPECT_EQ(fiche.latitude, QStringLiteral("43.40"));
    EXPECT_EQ(fiche.longitude, QStringLiteral("3.69"));
    EXPECT_EQ(fiche.altitude, QStringLiteral("10"));
    EXPECT_EQ(fiche.niveauGaz, QStringLiteral("GN0"));
}

TEST(BrouilleMet, RoundTripOnEveryByte)
{
    QByteArray tous;
    for (int i = 0; i < 512; ++i)
        tous.append(char(i & 0xff));
    for (const QString &nom : {QStringLiteral("A.met"), QStringLiteral("Saint-Étienne.met"),
                               QStringLiteral("L'Haÿ-les-Roses.met")}) {
        const QByteArray brouille = BrouilleMet(tous, nom);
        EXPECT_NE(brouille, tous) << nom.toStdString();
        EXPECT_EQ(BrouilleMet(brouille, nom), tous) << nom.toStdString();
    }
    EXPECT_TRUE(BrouilleMet(QByteArray(), QStringLiteral("A.met")).isEmpty());
}

TEST(BrouilleMet, TownFileWithoutTabsFillsEmptyValues)
{
    const FicheVille fiche = LireFicheVille(QByteArray("Nulle part\r\nsecond\tline\r\n"));
    EXPECT_EQ(fiche.nom, QStringLiteral("Nulle part"));
    EXPECT_TRUE(fiche.codePostal.isEmpty());
    EXPECT_TRUE(fiche.niveauGaz.isEmpty());
    EXPECT_EQ(fiche.departement(), 0);
    EXPECT_TRUE(LireFicheVille(QByteArray()).nom.isEmpty());
}

TEST(CommandeMet, UnscrambleScrambleAndErrors)
{
    QTemporaryDir dossier;
    const QString met = dossier.filePath(QStringLiteral("Sète.met"));
    ecrire(met, octetsSete());

    QString sortie, erreurs;
    QTextStream so(&sortie), se(&erreurs);
    EXPECT_EQ(ExecuterCommandeMet({QStringLiteral("unscramble"), met}, so, se), 0);
    EXPECT_EQ(sortie, QStringLiteral("Sète\t34301\t34200\tHérault\t43.40\t3.69\t10\tGN0\r\n"));

    // Scrambling the plain text under the same name gives the stored bytes back.
    const QString clair = dossier.filePath(QStringLiteral("clair/Sète.met"));
    QDir().mkpath(dossier.filePath(QStringLiteral("clair")));
    ecrire(clair, BrouilleMet(octetsSete(), QStringLiteral("Sète.met")));
    const QString refait = dossier.filePath(QStringLiteral("refait.met"));
    EXPECT_EQ(ExecuterCommandeMet({QStringLiteral("scramble"), clair, QStringLiteral("-o"), refait},
                                  so, se),
              0);
    QFile f(refait);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), octetsSete());

    struct Cas
    {
        QStringList arguments;
        int code;
    };
    const Cas cas[] = {
        {{}, 2},
        {{QStringLiteral("unscramble")}, 2},
        {{QStringLiteral("brouille"), met}, 2},
        {{QStringLiteral("unscramble"), met, QStringLiteral("-o"), refait}, 2},
        {{QStringLiteral("scramble"), met, QStringLiteral("-x"), refait}, 2},
        {{QStringLiteral("unscramble"), dossier.filePath(QStringLiteral("absent.met"))}, 1},
        {{QStringLiteral("scramble"), met, QStringLiteral("-o"),
          dossier.filePath(QStringLiteral("non/dossier/x.met"))},
         1},
    };
    for (const Cas &c : cas) {
        erreurs.clear();
        EXPECT_EQ(ExecuterCommandeMet(c.arguments, so, se), c.code)
            << c.arguments.join(' ').toStdString();
        EXPECT_FALSE(erreurs.isEmpty());
    }
    erreurs.clear();
    ExecuterCommandeMet(
        {QStringLiteral("unscramble"), dossier.filePath(QStringLiteral("absent.met"))}, so, se);
    EXPECT_TRUE(erreurs.startsWith(QStringLiteral("Impossible de lire le fichier : ")));
}

TEST(ArbreMeteo, PlainTableToScrambledTree)
{
    QTemporaryDir dossier;
    const QString sortie = dossier.filePath(QStringLiteral("Météo"));
    const QByteArray tete = "region\tdepartement\tcode\tnom\tinsee\tcp\tlat\tlon\talt\tgaz\n";
    const QByteArray table = tete
        + QStringLiteral("Occitanie\tHérault\t34\tSète\t34301\t34200\t43.40\t3.69\t10\tGN0\r\n"
                         "Corse\tHaute-Corse\t2B\tBastia\t2B033\t20200\t42.70\t9.45\t20\tGN0\n")
              .toUtf8();
    // A stale file of an earlier build goes.
    QDir().mkpath(sortie + QStringLiteral("/Ancienne"));
    QString erreur;
    EXPECT_EQ(GenererArbreMeteo(table, sortie, erreur), 2) << erreur.toStdString();
    EXPECT_FALSE(QDir(sortie + QStringLiteral("/Ancienne")).exists());
    const QByteArray clair = LireFichierMet(sortie + QStringLiteral("/Occitanie/Hérault/Sète.met"));
    EXPECT_EQ(clair,
              EncoderWindows1252(QStringLiteral(
                  "Sète\t34301\t34200\tHérault\t43.40\t3.69\t10\t34\tOccitanie\tGN0\r\n")));
    // The first seven fields are the stored file of the hand-checked example.
    EXPECT_EQ(BrouilleMet(clair, QStringLiteral("Sète.met")).left(31), octetsSete().left(31));
    EXPECT_EQ(
        LireFicheVille(LireFichierMet(sortie + QStringLiteral("/Corse/Haute-Corse/Bastia.met")))
            .departement(),
        20);

    const char *const fautes[] = {
        "Occitanie\tHérault\t34\tSète\t34301\t34200\t43.40\t3.69\t10\n",
        "Occitanie\tHérault\t34\t../Sète\t34301\t34200\t43.40\t3.69\t10\tGN0\n",
        "Occitanie\tHérault\t34\tSète\t34301\t3420\t43.40\t3.69\t10\tGN0\n",
        "Occitanie\tHérault\t34\tSète\t34301\t34200\tnord\t3.69\t10\tGN0\n",
        "Occitanie\tHérault\t34\tSète\t34301\t34200\t43.40\t3.69\t10\tGN0\n"
        "Occitanie\tHérault\t34\tSète\t34301\t34200\t43.40\t3.69\t10\tGN0\n",
    };
    for (const char *f : fautes) {
        erreur.clear();
        EXPECT_EQ(GenererArbreMeteo(tete + QByteArray(f), sortie, erreur), -1) << f;
        EXPECT_TRUE(erreur.startsWith(QStringLiteral("ligne "))) << erreur.toStdString();
    }
    // A refused table leaves the tree of the last good one.
    EXPECT_TRUE(QFile::exists(sortie + QStringLiteral("/Corse/Haute-Corse/Bastia.met")));
    EXPECT_EQ(GenererArbreMeteo(tete, sortie, erreur), -1);
}
