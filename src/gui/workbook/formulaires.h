#pragma once

#include <QMap>
#include <QString>

#include <functional>

class QWidget;

namespace thermique {
class Classeur;
}

namespace thermique::gui {

// A dialog of the application, opened by its form name ("Frm_Identité"...). It gathers
// inputs, calls core, and returns false when the user cancelled.
using FabriqueFormulaire = std::function<bool(Classeur &classeur, QWidget *parent)>;
using Formulaires = QMap<QString, FabriqueFormulaire>;

} // namespace thermique::gui
