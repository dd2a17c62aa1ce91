#!/usr/bin/env python3
"""Writes the thermal-bridge catalogue ("data/Ponts Thermiques/...") and the five joinery
catalogues of data/ (Vitrages, Menuiseries, WarmEdge, Volets, CoffreVolets). Run by hand
after a change of the tables below; the output is committed. The drawings named by the
details are made by scripts/data/dessins_ponts.cpp.

    python3 scripts/data/construire_ponts_menuiseries.py

Figures: see the section "Ponts thermiques et menuiseries" of data/SOURCES.md.
"""
import os
import shutil

RACINE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
DONNEES = os.path.join(RACINE, "data")


def enregistrement(*valeurs):
    return ",".join('"%s"' % v for v in valeurs) + "\r\n"


def ecrire(chemin, texte):
    os.makedirs(os.path.dirname(chemin), exist_ok=True)
    with open(chemin, "wb") as f:
        f.write(texte.encode("cp1252"))


def f2(v):
    return "%.2f" % v


# ---- Thermal bridges ------------------------------------------------------------------------

# Insulation thickness bands (cm); a bound shared by two bands belongs to the lower one.
BANDES_ISOLANT = [(4, 8), (8, 12), (12, 16), (16, 24)]
# Wall thickness bands (cm) of single-leaf insulating masonry.
BANDES_MUR = [(20, 30), (30, 37.5), (37.5, 50)]

AXE_ISOLANT = "Epaisseur de l'isolant (cm)"
AXE_MUR = "Epaisseur du mur (cm)"
AXE_PLANCHER = "Epaisseur du plancher (cm)"
AXE_MUR_PORTEUR = "Epaisseur du mur porteur (cm)"
AXE_RETOUR = "Retour d'isolant en tableau (cm)"

# Kinds of junction: folder, code, drawing key, second axis and its values, and the ψ
# by insulation: (first row, change per band, change per column of the second axis).
# A change per band below 0 means thicker insulation slightly raises the loss at the
# junction (the plane wall gets better, the uninsulated slab does not).
JONCTIONS = [
    ("Mur - Plancher bas", "L1", "PB", AXE_PLANCHER, [16, 20, 25],
     {"ITI": (0.62, 0.04, 0.06), "ITE": (0.48, 0.03, 0.04), "REP": (0.45, 0.03, 0.04)}),
    ("Mur - Plancher intermédiaire", "L2", "PI", AXE_PLANCHER, [16, 20, 25],
     {"ITI": (0.80, 0.04, 0.08), "ITE": (0.08, 0.00, 0.01), "REP": (0.32, 0.04, 0.04)}),
    ("Mur - Toiture terrasse", "L3", "TT", AXE_PLANCHER, [16, 20, 25],
     {"ITI": (0.72, 0.04, 0.06), "ITE": (0.22, -0.01, 0.02), "REP": (0.40, 0.03, 0.03)}),
    ("Mur - Plancher haut sous comble", "L3", "PH", AXE_MUR_PORTEUR, [15, 20, 25],
     {"ITI": (0.12, -0.01, 0.02), "ITE": (0.16, -0.01, 0.02), "REP": (0.14, -0.01, 0.02)}),
    ("Mur - Refend", "L4", "RF", AXE_MUR_PORTEUR, [15, 18, 20],
     {"ITI": (0.72, 0.03, 0.04), "ITE": (0.06, 0.00, 0.01), "REP": (0.18, 0.02, 0.02)}),
    ("Mur - Balcon", "L6", "BA", AXE_PLANCHER, [16, 20, 25],
     {"ITI": (0.90, 0.04, 0.06), "ITE": (0.78, 0.04, 0.06), "REP": (0.70, 0.04, 0.05)}),
    ("Menuiserie - Linteau", "L5", "ML", AXE_RETOUR, [1, 2, 3],
     {"ITI": (0.10, 0.01, -0.02), "ITE": (0.32, 0.02, -0.08), "REP": (0.12, 0.01, -0.02)}),
    ("Menuiserie - Appui", "L5", "MA", AXE_RETOUR, [1, 2, 3],
     {"ITI": (0.16, 0.01, -0.02), "ITE": (0.40, 0.02, -0.08), "REP": (0.15, 0.01, -0.02)}),
    ("Menuiserie - Tableau", "L5", "MT", AXE_RETOUR, [1, 2, 3],
     {"ITI": (0.08, 0.01, -0.02), "ITE": (0.30, 0.02, -0.08), "REP": (0.10, 0.01, -0.02)}),
    ("Angle sortant", "L7", "AS", AXE_MUR_PORTEUR, [15, 20, 25],
     {"ITI": (0.12, 0.01, 0.02), "ITE": (0.06, 0.00, 0.01), "REP": (0.08, 0.01, 0.01)}),
]
# Fixed values: no table, one cell.
FIXES = [
    ("Angle rentrant", "L8", "AR", {"ITI": 0.05, "ITE": 0.04, "REP": 0.05}),
    ("Menuiserie - Seuil", "L5", "MS", {"ITI": 0.45, "ITE": 0.50, "REP": 0.40}),
]

ISOLATIONS = [
    ("ITI", "Isolation intérieure", ["Béton banché", "Bloc béton creux", "Brique creuse"]),
    ("ITE", "Isolation extérieure", ["Béton banché", "Bloc béton creux"]),
    ("REP", "Isolation répartie", ["Brique monomur", "Béton cellulaire"]),
]
# A lighter masonry lowers the bridge a little, by kind of wall.
FACTEUR_MUR = {"Béton banché": 1.00, "Bloc béton creux": 0.92, "Brique creuse": 0.88,
               "Brique monomur": 1.00, "Béton cellulaire": 0.90}
# Slab junctions of interior insulation also exist with a thermal break.
RUPTEUR = {"Mur - Plancher intermédiaire": 0.38, "Mur - Plancher bas": 0.55,
           "Mur - Toiture terrasse": 0.45, "Mur - Balcon": 0.32}
VARIANTES_MENUISERIE = {
    "ITI": [("Menuiserie au nu intérieur", 1.0), ("Menuiserie en tunnel", 2.2)],
    "ITE": [("Menuiserie au nu extérieur", 0.45), ("Menuiserie au nu intérieur", 1.0)],
    "REP": [("Menuiserie en tunnel", 1.0)],
}


def detail(nom, code, image, niveaux, axe1, bandes, axe2, valeurs, psi, commentaire):
    lignes = len(bandes) + 1
    colonnes = len(valeurs)
    t = [enregistrement(n) for n in niveaux]
    texte3 = [nom, code, niveaux[0], commentaire, "Ordre de grandeur, voir SOURCES.md",
              axe1 + " :", axe2 + " :", axe1, axe2, "", "W/(m.K)", "",
              "Coefficient de transmission linéique psi (W/(m.K)) :"]
    t += [enregistrement(x) for x in texte3]
    t += [enregistrement(x) for x in ("2", str(colonnes), str(lignes))]
    vide = [[""] * colonnes for _ in range(lignes)]
    axe = [r[:] for r in vide]
    axe[-1][-1] = axe1
    tb = [r[:] for r in vide]
    tb[0][0], tb[0][2] = "De", "à"
    for i, (a, b) in enumerate(bandes):
        tb[i + 1][0], tb[i + 1][1], tb[i + 1][2] = ("%g" % a), "à", ("%g" % b)
    t2 = [r[:] for r in vide]
    for j, v in enumerate(valeurs):
        t2[0][j] = "%g" % v
    t2[-1][-1] = axe2
    t3 = [r[:] for r in vide]
    for i in range(len(bandes)):
        for j in range(colonnes):
            t3[i][j] = f2(psi[i][j])
    t3[-1][-1] = "psi"
    for table in (axe, tb, t2, t3):
        for rang in table:
            t += [enregistrement(x) for x in rang]
    t.append(enregistrement(image + ".bmp"))
    return "".join(t)


def fixe(nom, code, image, niveaux, valeur, commentaire):
    t = [enregistrement(n) for n in niveaux]
    texte3 = [nom, code, niveaux[0], commentaire, "Ordre de grandeur, voir SOURCES.md",
              "", "", "", "", "", "W/(m.K)", "",
              "Coefficient de transmission linéique psi (W/(m.K)) :"]
    t += [enregistrement(x) for x in texte3]
    t += [enregistrement(x) for x in ("0", "1", "1")]
    t += [enregistrement("")] * 3
    t.append(enregistrement(f2(valeur)))
    t.append(enregistrement(image + ".bmp"))
    return "".join(t)


def table(base, par_bande, par_colonne, facteur, bandes, colonnes):
    return [[max(0.0, round((base + par_bande * i + par_colonne * j) * facteur, 2))
             for j in range(colonnes)] for i in range(len(bandes))]


def ponts():
    racine = os.path.join(DONNEES, "Ponts Thermiques")
    if os.path.isdir(racine):
        shutil.rmtree(racine)
    dessins = set()
    nombre = 0
    for cle, isolation, murs in ISOLATIONS:
        bandes = BANDES_MUR if cle == "REP" else BANDES_ISOLANT
        axe1 = AXE_MUR if cle == "REP" else AXE_ISOLANT
        for mur in murs:
            for jonction, code, dessin, axe2, valeurs, psis in JONCTIONS:
                base, pb, pc = psis[cle]
                variantes = [("Sans rupteur", 1.0, "")]
                if jonction.startswith("Menuiserie"):
                    variantes = [(v, k, "-%d" % (n + 1))
                                 for n, (v, k) in enumerate(VARIANTES_MENUISERIE[cle])]
                elif cle == "ITI" and jonction in RUPTEUR:
                    variantes.append(("Avec rupteur", RUPTEUR[jonction], "-R"))
                for variante, k, suffixe in variantes:
                    image = "PT-%s-%s%s" % (cle, dessin, suffixe)
                    dessins.add(image)
                    niveaux = [isolation, jonction, mur, variante]
                    psi = table(base, pb, pc, FACTEUR_MUR[mur] * k, bandes, len(valeurs))
                    nom = "%s, %s" % (jonction, variante.lower())
                    texte = detail(nom, code, image, niveaux, axe1, bandes, axe2, valeurs,
                                   psi, "%s, %s" % (isolation, mur.lower()))
                    ecrire(os.path.join(racine, *niveaux, nom + ".txt"), texte)
                    nombre += 1
            for jonction, code, dessin, valeurs in FIXES:
                image = "PT-%s-%s" % (cle, dessin)
                dessins.add(image)
                niveaux = [isolation, jonction, mur, "Valeur forfaitaire"]
                texte = fixe(jonction, code, image, niveaux,
                             valeurs[cle] * FACTEUR_MUR[mur], "%s, %s" % (isolation, mur.lower()))
                ecrire(os.path.join(racine, *niveaux, jonction + ".txt"), texte)
                nombre += 1
    print("%d détails, %d dessins" % (nombre, len(dessins)))
    return sorted(dessins)


# ---- Joinery catalogues ---------------------------------------------------------------------

VITRAGES = [
    # name, thickness (m), solar factor, Ug, light transmission
    ("Simple vitrage 4 mm", "0.004", "0.87", "5.80", "0.90"),
    ("Simple vitrage 6 mm", "0.006", "0.85", "5.70", "0.89"),
    ("Double vitrage 4/6/4 air", "0.014", "0.78", "3.30", "0.81"),
    ("Double vitrage 4/12/4 air", "0.020", "0.78", "2.90", "0.81"),
    ("Double vitrage 4/16/4 air", "0.024", "0.78", "2.70", "0.81"),
    ("Double vitrage 4/16/4 faible émissivité, air", "0.024", "0.63", "1.50", "0.80"),
    ("Double vitrage 4/16/4 faible émissivité, argon", "0.024", "0.63", "1.10", "0.80"),
    ("Double vitrage 4/20/4 faible émissivité, argon", "0.028", "0.63", "1.10", "0.80"),
    ("Double vitrage 4/16/4 contrôle solaire, argon", "0.024", "0.40", "1.10", "0.70"),
    ("Double vitrage feuilleté 44.2/16/4 faible émissivité, argon", "0.029", "0.60", "1.10", "0.78"),
    ("Triple vitrage 4/12/4/12/4 faible émissivité, argon", "0.036", "0.50", "0.70", "0.71"),
    ("Triple vitrage 4/16/4/16/4 faible émissivité, argon", "0.044", "0.50", "0.60", "0.71"),
    ("Triple vitrage 4/12/4/12/4 faible émissivité, krypton", "0.036", "0.50", "0.50", "0.70"),
]
MENUISERIES = [
    ("PVC, 3 chambres", "2.00"), ("PVC, 5 chambres", "1.40"), ("PVC renforcé acier, 5 chambres", "1.60"),
    ("Bois tendre (résineux), 58 mm", "1.90"), ("Bois tendre (résineux), 68 mm", "1.70"),
    ("Bois tendre (résineux), 78 mm", "1.50"), ("Bois dur (feuillus), 68 mm", "2.00"),
    ("Aluminium sans rupture de pont thermique", "5.90"),
    ("Aluminium à rupture de pont thermique, barrette 12 mm", "3.30"),
    ("Aluminium à rupture de pont thermique, barrette 24 mm", "2.40"),
    ("Mixte bois-aluminium", "1.60"), ("Mixte aluminium-PVC", "1.80"),
    ("Acier sans rupture de pont thermique", "5.90"),
]
WARM_EDGE = [
    ("Intercalaire aluminium, double vitrage, menuiserie bois ou PVC", "0.08"),
    ("Intercalaire aluminium, double vitrage, menuiserie métallique à rupture", "0.11"),
    ("Intercalaire aluminium, triple vitrage, menuiserie bois ou PVC", "0.08"),
    ("Intercalaire acier inoxydable, double vitrage, menuiserie bois ou PVC", "0.06"),
    ("Intercalaire warm edge (composite), double vitrage, menuiserie bois ou PVC", "0.05"),
    ("Intercalaire warm edge (composite), double vitrage, menuiserie métallique à rupture", "0.07"),
    ("Intercalaire warm edge (composite), triple vitrage, menuiserie bois ou PVC", "0.04"),
    ("Simple vitrage, sans intercalaire", "0.00"),
]
VOLETS = [
    ("Volet roulant aluminium (lames sans mousse)", "0.09"),
    ("Volet roulant aluminium (lames avec mousse isolante)", "0.15"),
    ("Volet roulant PVC", "0.15"),
    ("Volet roulant bois", "0.17"),
    ("Volet battant bois, épaisseur 22 mm", "0.19"),
    ("Volet battant bois, épaisseur 27 mm", "0.21"),
    ("Volet battant PVC", "0.17"),
    ("Volet battant aluminium", "0.11"),
    ("Persienne ou jalousie (lames ajourées)", "0.08"),
    ("Volet isolant (mousse rigide, 50 mm)", "0.30"),
]
COFFRES = [
    ("Coffre de volet roulant intérieur, non isolé", "3.00"),
    ("Coffre de volet roulant intérieur, isolé", "1.80"),
    ("Coffre tunnel isolé (bloc-baie)", "1.20"),
    ("Coffre extérieur, sans pénétration dans le mur", "0.60"),
    ("Coffre demi-linteau isolé", "0.90"),
]


def menuiseries():
    for nom, lignes in (("Vitrages.txt", VITRAGES), ("Menuiseries.txt", MENUISERIES),
                        ("WarmEdge.txt", WARM_EDGE), ("Volets.txt", VOLETS),
                        ("CoffreVolets.txt", COFFRES)):
        ecrire(os.path.join(DONNEES, nom), "".join(enregistrement(*l) for l in lignes))
    # The last values of the dimensions form: a 2-leaf white window of 1.20 x 1.35.
    saisie = "".join(enregistrement(x) for x in ("2", "1.20", "1.35", "0", "0", "0", "0.10", "0"))
    ecrire(os.path.join(DONNEES, "FenêtreSaisieValeurs.txt"), saisie + "0\r\n1\r\n0\r\n")


if __name__ == "__main__":
    liste = ponts()
    menuiseries()
    with open(os.path.join(RACINE, "scripts", "data", "dessins_ponts.txt"), "w") as f:
        f.write("\n".join(liste) + "\n")
