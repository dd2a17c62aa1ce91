#include "brouillemet.h"

#include "workbook/records.h"

#include <QFile>
#include <QFileInfo>

namespace thermique {

namespace {
// The key table of the routine holds this many codes; a longer key is cut.
constexpr int capaciteCle = 10000;
constexpr qint64 tailleMaximale = 1 << 20;
} // namespace

QByteArray CleBrouillage(const QString &nomFichier)
{
    const QByteArray nom
        = EncoderWindows1252(nomFichier.left(std::max<qsizetype>(0, nomFichier.size() - 4)));
    QByteArray cle;
    for (qsizetype i = 0; i < nom.size() && cle.size() < capaciteCle; ++i) {
        const unsigned code = static_cast<unsigned char>(nom.at(i));
        cle.append(nom.at(i));
        cle.append(QByteArray::number(qulonglong(code) * qulonglong(i + 1)));
    }
    return cle.left(capaciteCle);
}

QByteArray BrouilleMet(const QByteArray &octets, const QString &nomFichier)
{
    const QByteArray cle = CleBrouillage(nomFichier);
    if (cle.isEmpty())
        return octets;
    QByteArray sortie(octets.size(), Qt::Uninitialized);
    qsizetype k = 0;
    for (qsizetype p = 0; p < octets.size(); ++p) {
        sortie[p] = char(static_cast<unsigned char>(octets.at(p))
                         ^ static_cast<unsigned char>(cle.at(k)));
        if (++k >= cle.size())
            k = 0;
    }
    return sortie;
}

QByteArray LireFichierMet(const QString &chemin)
{
    QFile f(chemin);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return BrouilleMet(f.read(tailleMaximale), QFileInfo(chemin).fileName());
}

} // namespace thermique
