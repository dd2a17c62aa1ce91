#pragma once

#include <QDialog>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QTableWidget;
class QTreeWidget;

namespace thermique {
class Classeur;
}

namespace thermique::gui {

// The reduced temperature coefficient b of a heat-loss line, by kind of unheated space.
class DialogueCalculB : public QDialog
{
public:
    DialogueCalculB(Classeur &classeur, QWidget *parent);
    void accept() override;

private:
    Classeur &m_classeur;
    QTreeWidget *m_options = nullptr;
};

// The azimuth of a wall line and the horizon mask of the study, every 5° of azimuth.
class DialogueRoseDesVents : public QDialog
{
public:
    DialogueRoseDesVents(Classeur &classeur, QWidget *parent);
    void accept() override;

private:
    Classeur &m_classeur;
    QComboBox *m_azimut = nullptr;
    QTableWidget *m_masques = nullptr;
};

// Whether the insertion command adds a wall line or a bridge line.
class DialogueChoixLigne : public QDialog
{
public:
    DialogueChoixLigne(Classeur &classeur, QWidget *parent);
    void accept() override;

private:
    Classeur &m_classeur;
    QCheckBox *m_pont = nullptr;
};

} // namespace thermique::gui
