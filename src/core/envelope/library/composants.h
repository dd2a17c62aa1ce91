#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>

// The materials library: "\Composants\<category>\<variety>\<component>.txt" under the
// application folder, one file per component.
namespace thermique {

struct ContexteParois;

// The seven lines of a component file, as text (a density may be a range "1200 à 1400").
struct Composant
{
    QString references;
    QString masseVolumique;
    QString conductivite;
    QString capacite;
    QString muSec;
    QString muHumide;
    QString commentaire;

    bool operator==(const Composant &) const = default;
};

// The label that starts each of the seven lines, in file order.
const QStringList &LibellesComposant();

// Reads a component file; nullopt when it cannot be opened. Missing lines stay empty.
std::optional<Composant> LireComposant(const QString &chemin);
// Writes a component file, creating its folders. False when it could not be written.
bool EcrireComposant(const QString &chemin, const Composant &composant);

struct VarieteComposants
{
    QString nom;
    QStringList composants; // file names without ".txt"
};
struct CategorieComposants
{
    QString nom;
    QVector<VarieteComposants> varietes;
};
// The tree under the "Composants" folder, sorted by name; names starting with "." are
// skipped, and only files ending ".txt" are components.
QVector<CategorieComposants> ScannerComposants(const QString &dossierComposants);
// Path of a component file under the "Composants" folder.
QString CheminComposant(const QString &dossierComposants, const QString &categorie,
                        const QString &variete, const QString &composant);

// An air layer is computed by its own form, not taken as a material.
bool EstLameAir(const QString &nom);

// "Valider" of the components window: column 6 the name, 8 the conductivity, 13 density,
// capacity and dry μ each followed by "£"; then the block is recomputed.
void AppliquerComposant(ContexteParois &ctx, int ligne, const QString &nom,
                        const Composant &composant);

} // namespace thermique
