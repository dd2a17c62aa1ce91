#include "menus.h"

namespace thermique {

const QVector<EntreeMenu> &TableMenus()
{
    static const QVector<EntreeMenu> table = {
        {"MnuFichiers", "&Fichier", ""},
        {"MnuIdentité", "I&dentité", "MnuFichiers"},
        {"MnuOuvrir", "&Ouvrir", "MnuFichiers"},
        {"Ouvrir", "Ouvrir (ancien fichier)", "MnuFichiers"},
        {"MnuEnregistrer", "&Enregister", "MnuFichiers"},
        {"MnuEnregistrerSous", "E&nregister sous", "MnuFichiers"},
        {"", "", "MnuFichiers"},
        {"MnuImprimer", "&Imprimer", "MnuFichiers"},
        {"", "", "MnuFichiers"},
        {"MnuQuitter", "&Quitter", "MnuFichiers"},
        {"MnuEdition", "&Edition", ""},
        {"MnuPolice", "&Police imprimante", "MnuEdition"},
        {"Mnu_Météo", "&Météo", ""},
        {"TarifTermique", "O&utils", ""},
        {"Mnu_Aide", "&Aide au fonctionnement de l'application", "TarifTermique"},
        {"Mnu_ApportsInternes", "Apports &Internes", "TarifTermique"},
        {"Mnu_UTempératures", "Calcul U à partir des températures", "TarifTermique"},
        {"Mnu_EclairageNaturel", "Calcul de l'éclairage naturel", "TarifTermique"},
        {"Mnu_Conversion", "Convertisseur d'unités - Trigonométrie", "TarifTermique"},
        {"Mnu_AirHumide", "Diagramme de l'air humide", "TarifTermique"},
        {"Mnu_EtudeMasques", "&Etude des masques", "TarifTermique"},
        {"Mnu_kW", "kWh ou kW", "TarifTermique"},
        {"PouvoirCalorifique", "Pouvoir calorifique des combustibles végétaux", "TarifTermique"},
        {"Mnu_CaptureImages", "Capture d'images", "TarifTermique"},
        {"Mnu_TransfertDonnées", "Copier/Coller transfert de données", "TarifTermique"},
        {"Mnu_DonnéesMétéo", "&Données météo", "TarifTermique"},
        {"Mnu_ECS", "Eau Chaude Sanitaire", "TarifTermique"},
        {"Mnu_NiveauTarifGazNat", "Niveau tarif &Gaz Naturel", "TarifTermique"},
        {"Mnu_RadiBitube", "Radiateurs &bitude", "TarifTermique"},
        {"Mnu_RécapitulationPièces", "Récapitulation &Pièces", "TarifTermique"},
        {"Mnu_RécupFichier", "Récupération fichier après erreur", "TarifTermique"},
        {"Mnu_Calorifuites", "Rép&artition Calorifuites", "TarifTermique"},
        {"Mnu_Rotation", "&Rotation", "TarifTermique"},
        {"TarifEnergies", "&Tarif des énergies", "TarifTermique"},
        {"Mnu_Options", "&Options", ""},
        {"Mnu_APropos", "A propos", "Mnu_Options"},
        {"Mnu_CentrageFeuilles", "Centrage feuilles", "Mnu_Options", true},
        {"Mnu_Couleur", "Couleurs", "Mnu_Options"},
        {"Mnu_CouleurDéfaut", "Couleurs par défaut", "Mnu_Couleur"},
        {"Mnu_Couleurs", "Couleurs au choix", "Mnu_Couleur"},
        {"Mnu_Documentation", "Documentation", "Mnu_Options"},
        {"Mnu_FichiersAnciens", "Menu accès aux anciens fichiers", "Mnu_Options", true},
    };
    return table;
}

} // namespace thermique
