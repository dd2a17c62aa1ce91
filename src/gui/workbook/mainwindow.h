#pragma once

#include "workbook/dossierapplication.h"

#include <QMainWindow>

class QTabBar;

namespace thermique {

// The workbook window: the tabs of the eight sheets over the grid of the active sheet.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(const DossierApplication &dossier, QWidget *parent = nullptr);

private:
    DossierApplication m_dossier;
    QTabBar *m_onglets = nullptr;
};

} // namespace thermique
