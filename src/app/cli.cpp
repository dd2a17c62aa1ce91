#include "cli.h"

#include "climate/commandemet.h"
#include "workbook/calculatrice.h"
#include "workbook/classeur.h"
#include "workbook/dossierapplication.h"
#include "workbook/feuilles.h"
#include "workbook/fichierprojet.h"
#include "workbook/nombres.h"
#include "workbook/projet.h"
#include "workbook/userinterface.h"

#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace thermique {

namespace {

const char usage[] = "Usage :\n"
                     "  thermique-cli eval EXPR\n"
                     "  thermique-cli format VALEUR MOTIF\n"
                     "  thermique-cli dump ETUDE.dep --grid sheet:N|besoins:N|conso:N\n"
                     "  thermique-cli recalc ETUDE.dep [-o SORTIE.dep]\n"
                     "  thermique-cli met unscramble|scramble FICHIER\n"
                     "Option : --dossier DOSSIER (dossier de l'application)\n";

int eval(const QStringList &args, QTextStream &sortie, QTextStream &erreurs)
{
    if (args.size() != 1) {
        erreurs << usage;
        return 2;
    }
    BatchUserInterface ui(&erreurs);
    QString expression = args.at(0);
    const auto valeur = Calculatrice(expression, ui);
    if (ui.messagesAffiches() > 0)
        return 1;
    // An empty operation gives an empty result and no message.
    sortie << (valeur ? TexteNombre(*valeur) : QString()) << '\n';
    return 0;
}

int format(const QStringList &args, QTextStream &sortie, QTextStream &erreurs)
{
    if (args.size() != 2) {
        erreurs << usage;
        return 2;
    }
    sortie << Format(ValNombre(args.at(0)), args.at(1)) << '\n';
    return 0;
}

// A cell on one line: CR dropped, LF and TAB written as two characters.
QString celluleSurUneLigne(QString texte)
{
    texte.remove(QLatin1Char('\r'));
    texte.replace(QLatin1Char('\n'), QStringLiteral("\\n"));
    texte.replace(QLatin1Char('\t'), QStringLiteral("\\t"));
    return texte;
}

const Grid *grilleNommee(const Study &e, const QString &nom)
{
    const QStringList parties = nom.split(QLatin1Char(':'));
    if (parties.size() != 2)
        return nullptr;
    bool ok = false;
    const int n = parties[1].toInt(&ok);
    if (!ok || n < 0)
        return nullptr;
    if (parties[0] == QLatin1String("sheet") && n < Study::NombreFeuilles)
        return &e.flexGrid[n];
    if (parties[0] == QLatin1String("besoins") && n < Study::NombreFeuillesBesoins)
        return &e.flexGrid2[n];
    if (parties[0] == QLatin1String("conso") && n < Study::NombreFeuillesConsommations)
        return &e.flexGrid3[n];
    return nullptr;
}

int dump(const QStringList &args, QTextStream &sortie, QTextStream &erreurs)
{
    if (args.size() != 3 || args[1] != QLatin1String("--grid")) {
        erreurs << usage;
        return 2;
    }
    Study etude;
    const Grid *g = grilleNommee(etude, args[2]);
    if (!g) {
        erreurs << usage;
        return 2;
    }
    QFile f(args[0]);
    if (!f.open(QIODevice::ReadOnly)) {
        erreurs << "Impossible de lire le fichier " << args[0] << '\n';
        return 1;
    }
    const bool complet = LireEtude(f.readAll(), etude);
    for (int r = 0; r < g->rows(); ++r) {
        QStringList cellules;
        for (int c = 0; c < g->cols(); ++c)
            cellules << celluleSurUneLigne(g->text(r, c));
        sortie << cellules.join(QLatin1Char('\t')) << '\n';
    }
    if (!complet) {
        erreurs << "Fichier incomplet ou endommagé : lecture arrêtée avant la fin.\n";
        return 1;
    }
    return 0;
}

int recalc(const QStringList &args, const DossierApplication &dossier, QTextStream &erreurs)
{
    QString entree, sortieFichier;
    for (int i = 0; i < args.size(); ++i) {
        if (args[i] == QLatin1String("-o") && i + 1 < args.size())
            sortieFichier = args[++i];
        else if (entree.isEmpty())
            entree = args[i];
        else {
            erreurs << usage;
            return 2;
        }
    }
    if (entree.isEmpty()) {
        erreurs << usage;
        return 2;
    }
    if (!QFileInfo(entree).isFile()) {
        erreurs << "Impossible de lire le fichier " << entree << '\n';
        return 1;
    }
    Study etude;
    BatchUserInterface ui(&erreurs);
    Classeur classeur(etude, ui, dossier);
    InstallerFeuilles(classeur);
    InstallerFichierProjet(classeur);
    // A batch run leaves no snapshot behind.
    classeur.extensions.sauvegardeInter = nullptr;
    classeur.ChargementInitial();
    if (!OuvrirFichierChemin(classeur, QFileInfo(entree).absoluteFilePath())) {
        erreurs << "Fichier incomplet ou endommagé : " << entree << '\n';
        return 1;
    }
    classeur.RecalculerTout();
    // Every tab in turn, as a user would go through the study.
    for (int onglet = 1; onglet <= 8; ++onglet)
        classeur.ChangementFeuille(onglet);
    classeur.ChangementFeuille(1);
    const int messages = ui.messagesAffiches();
    if (!EcrireFichiers(classeur, sortieFichier.isEmpty() ? entree : sortieFichier))
        return 1;
    return messages > 0 ? 1 : 0;
}

} // namespace

int ExecuterCli(QStringList arguments, const QString &dossierExecutable, QTextStream &sortie,
                QTextStream &erreurs)
{
    const DossierApplication dossier = DossierApplication::resoudre(arguments, dossierExecutable);
    if (arguments.isEmpty()) {
        erreurs << usage;
        return 2;
    }
    const QString commande = arguments.takeFirst();
    int code = 2;
    if (commande == QLatin1String("eval"))
        code = eval(arguments, sortie, erreurs);
    else if (commande == QLatin1String("format"))
        code = format(arguments, sortie, erreurs);
    else if (commande == QLatin1String("dump"))
        code = dump(arguments, sortie, erreurs);
    else if (commande == QLatin1String("recalc"))
        code = recalc(arguments, dossier, erreurs);
    else if (commande == QLatin1String("met"))
        code = ExecuterCommandeMet(arguments, sortie, erreurs);
    else
        erreurs << usage;
    sortie.flush();
    erreurs.flush();
    return code;
}

} // namespace thermique
