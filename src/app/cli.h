#pragma once

#include <QStringList>

class QTextStream;

namespace thermique {

// The batch tool. `arguments` excludes the program name. Returns the exit code:
// 0 success, 1 user-level error (a message was raised), 2 bad usage.
int ExecuterCli(QStringList arguments, const QString &dossierExecutable, QTextStream &sortie,
                QTextStream &erreurs);

} // namespace thermique
