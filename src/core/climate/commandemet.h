#pragma once

#include <QStringList>

class QTextStream;

namespace thermique {

// "met unscramble FILE" and "met scramble FILE [-o OUT]" of the batch tool (the arguments
// after "met"). The key comes from FILE's own name. An unscrambled file is printed as text;
// scrambled bytes go to OUT, or unchanged to the output device. Returns 0 on success,
// 1 when a file cannot be read or written, 2 on bad usage.
int ExecuterCommandeMet(const QStringList &arguments, QTextStream &sortie, QTextStream &erreurs);

} // namespace thermique
