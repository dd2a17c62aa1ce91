#include "cli.h"

#include "workbook/calculatrice.h"
#include "workbook/dossierapplication.h"
#include "workbook/nombres.h"
#include "workbook/userinterface.h"

#include <QTextStream>

namespace thermique {

namespace {

const char usage[] = "Usage :\n"
                     "  thermique-cli eval EXPR\n"
                     "  thermique-cli format VALEUR MOTIF\n"
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

} // namespace

int ExecuterCli(QStringList arguments, const QString &dossierExecutable, QTextStream &sortie,
                QTextStream &erreurs)
{
    const DossierApplication dossier = DossierApplication::resoudre(arguments, dossierExecutable);
    Q_UNUSED(dossier);
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
    else
        erreurs << usage;
    sortie.flush();
    erreurs.flush();
    return code;
}

} // namespace thermique
