#pragma once

#include "workbook/etatvue.h"

#include <QHash>
#include <QObject>

class QAction;
class QMenuBar;

namespace thermique::gui {

// The menu bar built from the workbook's table of entries. Each entry is found again by
// its name to show the controller's state (caption, enabled, visible, checked), and a
// chosen entry is reported by its name.
class BarreMenus : public QObject
{
    Q_OBJECT

public:
    explicit BarreMenus(QMenuBar *barre);

    void appliquer(const QMap<QString, EtatMenu> &etats);
    QAction *action(const QString &nom) const { return m_actions.value(nom); }

signals:
    void choisi(const QString &nom);

private:
    QHash<QString, QAction *> m_actions;
};

} // namespace thermique::gui
