#pragma once

#include "study.h"

#include <QByteArray>

// The study file (".dep"), its companion (".Pc1"), the old format and the sheet snapshots.
// The layout is a plain sequence of records with no section markers: every block is
// always written, in a fixed order, and read back in the same order.
namespace thermique {

class RecordReader;
class RecordWriter;

struct FichierEtude
{
    QByteArray dep;
    QByteArray compagnon;
};

// The study as the ".dep" and its companion, both Windows-1252.
FichierEtude EcrireEtude(const Study &etude);

// Reads a ".dep" into `etude`. Reading stops at the first missing or damaged value and
// leaves the grids as far as they were read; returns false then.
bool LireEtude(const QByteArray &octets, Study &etude);

// Reads a file of the earlier format.
bool LireAncienneEtude(const QByteArray &octets, Study &etude);

// The snapshot of sheet 0 to 4: the old layout of one grid, its operations on sheets 1, 3
// and 4, and the tail of shared values.
QByteArray EcrireInstantane(const Study &etude, int feuille);
// Reads the grid (and operations) of a snapshot into etude.flexGrid[feuille]; with
// `lireQueue`, the shared values of the tail too.
bool LireInstantane(const QByteArray &octets, Study &etude, int feuille, bool lireQueue);

// Limits on what a file may ask for, so that a damaged size never allocates without bound.
constexpr int LignesMaximum = 200000;
constexpr int ColonnesMaximum = 1000;

} // namespace thermique
