#pragma once

#include "climate/meteodonnees.h"

#include <QDialog>

#include <array>

class QComboBox;
class QLabel;
class QLineEdit;

namespace thermique::gui {

// The weather of the nearest stations, read only; the degree-day base moves by clicks on
// its label.
class DialogueMeteoDonnees : public QDialog
{
public:
    DialogueMeteoDonnees(MeteoDonnees donnees, QWidget *parent);

private:
    void afficher();

    MeteoDonnees m_donnees;
    QLineEdit *m_latitude = nullptr;
    QLineEdit *m_longitude = nullptr;
    QLineEdit *m_altitude = nullptr;
    QLabel *m_libelleDJU = nullptr;
    QLineEdit *m_dju = nullptr;
    QComboBox *m_site = nullptr;
    // Six frames of twelve months.
    std::array<std::array<QLineEdit *, 12>, 6> m_mois {};
};

} // namespace thermique::gui
