#pragma once

#include <QByteArray>
#include <QString>

// The town files of the weather folder are stored scrambled by a stream built from the
// file's own name; no key is stored anywhere. The same operation undoes itself.
namespace thermique {

// The key text of a file name (extension included, its last four characters are dropped):
// each character followed by the decimal digits of its code times its position from 1.
// Codes are those of Windows-1252.
QByteArray CleBrouillage(const QString &nomFichier);

// Scrambles or unscrambles `octets` for the file named `nomFichier` ("Brest.met").
QByteArray BrouilleMet(const QByteArray &octets, const QString &nomFichier);

// Reads and unscrambles a town file; empty when it cannot be read. Town files are small:
// anything beyond the first megabyte is not read.
QByteArray LireFichierMet(const QString &chemin);

} // namespace thermique
