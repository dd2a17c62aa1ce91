// The air-layer and surface-resistance calculators and the emissivity picture.
#include "envelope/coefu/editeurparois.h"
#include "envelope/formulairesenveloppe.h"
#include "envelope/library/calculateurs.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace thermique::gui {

bool OuvrirLameAir(ContexteParois &ctx, int ligne, QWidget *parent)
{
    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Résistance thermique d'une lame d'air"));
    auto *disposition = new QVBoxLayout(&d);
    auto *options = new QGroupBox(QStringLiteral("Lame d'air"), &d);
    auto *dispositionOptions = new QVBoxLayout(options);
    QRadioButton *boutons[3] = {
        new QRadioButton(QStringLiteral("Non ventilée"), options),
        new QRadioButton(QStringLiteral("Faiblement ventilée"), options),
        new QRadioButton(QStringLiteral("Fortement ventilée"), options),
    };
    for (QRadioButton *b : boutons)
        dispositionOptions->addWidget(b);
    boutons[0]->setChecked(true);
    disposition->addWidget(options);

    auto *champs = new QFormLayout;
    auto *epaisseur = new QLineEdit(&d);
    QLineEdit *resistances[3] = {new QLineEdit(&d), new QLineEdit(&d), new QLineEdit(&d)};
    champs->addRow(QStringLiteral("Epaisseur de la lame (m) :"), epaisseur);
    champs->addRow(QStringLiteral("R, flux vers le haut ((m².K)/W) :"), resistances[0]);
    champs->addRow(QStringLiteral("R, flux horizontal ((m².K)/W) :"), resistances[1]);
    champs->addRow(QStringLiteral("R, flux vers le bas ((m².K)/W) :"), resistances[2]);
    disposition->addLayout(champs);

    FormulaireLameAir f;
    const auto calculer = [&] {
        for (int i = 0; i < 3; ++i)
            if (boutons[i]->isChecked())
                f.option = i;
        f.epaisseur = epaisseur->text();
        for (int i = 0; i < 3; ++i)
            f.resistances[i] = resistances[i]->text();
        CalculerLameAir(f);
        for (int i = 0; i < 3; ++i)
            resistances[i]->setText(f.resistances[i]);
    };
    QObject::connect(epaisseur, &QLineEdit::textEdited, &d, calculer);
    for (QRadioButton *b : boutons)
        QObject::connect(b, &QRadioButton::toggled, &d, calculer);

    auto *valider = new QDialogButtonBox(QDialogButtonBox::Cancel, &d);
    valider->addButton(QStringLiteral("Valider"), QDialogButtonBox::AcceptRole);
    QObject::connect(valider, &QDialogButtonBox::accepted, &d, &QDialog::accept);
    QObject::connect(valider, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    disposition->addWidget(valider);
    if (d.exec() != QDialog::Accepted)
        return false;
    calculer();
    ValiderLameAir(ctx, ligne, f);
    return true;
}

bool OuvrirResistanceSuperficielle(ContexteParois &ctx, int ligne, QWidget *parent)
{
    FormulaireResistanceSuperficielle f
        = ValeursDepartResistance(ctx.grille.text(ligne, ColonneParoi::Libelle));
    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Résistance superficielle"));
    auto *disposition = new QVBoxLayout(&d);
    disposition->addWidget(new QLabel(f.titre, &d));
    auto *champs = new QFormLayout;
    auto ajouter = [&](const QString &libelle, const QString &valeur) {
        auto *e = new QLineEdit(valeur, &d);
        champs->addRow(libelle, e);
        return e;
    };
    QLineEdit *tm = ajouter(QStringLiteral("Température moyenne Tm (°C) :"), f.temperatureMoyenne);
    QLineEdit *hr0 = ajouter(QStringLiteral("hr0 (W/(m².K)) :"), f.hr0);
    QLineEdit *eps = ajouter(QStringLiteral("Emissivité ε :"), f.emissivite);
    QLineEdit *hr = ajouter(QStringLiteral("hr (W/(m².K)) :"), f.hr);
    QLineEdit *v = ajouter(QStringLiteral("Vitesse du vent v (m/s) :"), f.vitesseVent);
    QLineEdit *hc = ajouter(QStringLiteral("hc (W/(m².K)) :"), f.hc);
    QLineEdit *r = ajouter(QStringLiteral("Résistance superficielle ((m².K)/W) :"), f.resistance);
    for (QLineEdit *e : {hr0, hr, r})
        e->setReadOnly(true);
    v->setEnabled(f.exterieure);
    hc->setReadOnly(f.exterieure);
    disposition->addLayout(champs);
    disposition->addWidget(new QLabel(QStringLiteral("Dans les règles Th-U, Tm est pris égal à "
                                                     "0°C.\nDans les règles Th-U, v est pris égal "
                                                     "à 4 m/s.\nDans les règles Th-U, e est pris "
                                                     "égal à 0.90."),
                                      &d));
    const auto calculer = [&] {
        f.temperatureMoyenne = tm->text();
        f.emissivite = eps->text();
        f.vitesseVent = v->text();
        f.hc = hc->text();
        CalculerResistanceSuperficielle(f);
        hr0->setText(f.hr0);
        hr->setText(f.hr);
        hc->setText(f.hc);
        r->setText(f.resistance);
    };
    for (QLineEdit *e : {tm, eps, v, hc})
        QObject::connect(e, &QLineEdit::textEdited, &d, calculer);

    auto *boutons = new QDialogButtonBox(QDialogButtonBox::Cancel, &d);
    boutons->addButton(QStringLiteral("Valider"), QDialogButtonBox::AcceptRole);
    QPushButton *emissivites
        = boutons->addButton(QStringLiteral("Emissivités"), QDialogButtonBox::ActionRole);
    QObject::connect(emissivites, &QPushButton::clicked, &d, [&d] { OuvrirEmissivite(&d); });
    QObject::connect(boutons, &QDialogButtonBox::accepted, &d, &QDialog::accept);
    QObject::connect(boutons, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    disposition->addWidget(boutons);
    if (d.exec() != QDialog::Accepted)
        return false;
    ValiderResistanceSuperficielle(ctx, ligne, f);
    return true;
}

namespace {

// A bar chart of the emissivities of usual surfaces.
class ImageEmissivites : public QWidget
{
public:
    explicit ImageEmissivites(QWidget *parent)
        : QWidget(parent)
    {
        setMinimumSize(560, 420);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        struct Surface
        {
            const char *nom;
            double e;
        };
        static constexpr Surface surfaces[] = {
            {"Aluminium poli", 0.05},
            {"Aluminium oxydé", 0.30},
            {"Acier galvanisé neuf", 0.25},
            {"Cuivre oxydé", 0.65},
            {"Verre", 0.84},
            {"Peintures, toutes teintes", 0.90},
            {"Plâtre, enduits", 0.91},
            {"Bois", 0.90},
            {"Brique, béton", 0.93},
            {"Tuile terre cuite", 0.93},
            {"Eau, glace", 0.96},
            {"Corps noir", 1.00},
        };
        QPainter p(this);
        p.fillRect(rect(), Qt::white);
        p.setRenderHint(QPainter::Antialiasing);
        const int gauche = 190, haut = 40, largeur = width() - gauche - 30;
        const int pas = (height() - haut - 20) / int(std::size(surfaces));
        p.drawText(10, 24, QStringLiteral("Emissivité des corps gris (infrarouge, 20 °C)"));
        for (size_t i = 0; i < std::size(surfaces); ++i) {
            const int y = haut + int(i) * pas;
            p.setPen(Qt::black);
            p.drawText(QRect(10, y, gauche - 20, pas), Qt::AlignVCenter | Qt::AlignRight,
                       QString::fromUtf8(surfaces[i].nom));
            const int l = int(largeur * surfaces[i].e);
            const QColor c = QColor::fromHsvF(0.6 * (1 - surfaces[i].e), 0.6, 0.9);
            p.fillRect(gauche, y + 3, l, pas - 6, c);
            p.drawText(gauche + l + 4, y + pas - 6, QString::number(surfaces[i].e, 'f', 2));
        }
    }
};

} // namespace

void OuvrirEmissivite(QWidget *parent)
{
    QDialog d(parent);
    d.setWindowTitle(QStringLiteral("Emissivité des corps gris"));
    auto *disposition = new QVBoxLayout(&d);
    disposition->addWidget(new ImageEmissivites(&d));
    auto *fermer = new QDialogButtonBox(QDialogButtonBox::Close, &d);
    QObject::connect(fermer, &QDialogButtonBox::rejected, &d, &QDialog::reject);
    disposition->addWidget(fermer);
    d.exec();
}

} // namespace thermique::gui
