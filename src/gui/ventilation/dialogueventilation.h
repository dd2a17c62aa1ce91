#pragma once

#include "workbook/dossierapplication.h"

#include <QDialog>

class QTabBar;
class QTableWidget;

namespace thermique::gui {

// The regulated flow tables: one tab per kind of building, one sub-tab per table. The
// user reads the flows here and types them on the ventilation sheet.
class DialogueVentilation : public QDialog
{
public:
    DialogueVentilation(const DossierApplication &dossier, QWidget *parent);

    void done(int resultat) override;

private:
    void remplirTables();
    void remplirGrille();

    DossierApplication m_dossier;
    QTabBar *m_onglets = nullptr;
    QTabBar *m_tables = nullptr;
    QTableWidget *m_grille = nullptr;
    bool m_chargement = true;
};

} // namespace thermique::gui
