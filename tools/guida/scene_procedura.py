"""The pictures of the start window and of the wizard, in the order of the guide. Each scene starts from nothing."""

from album import part, target
from programma import rectangle

WIZARD = "Autocomposizione Quadrivio - Passo"
# Of the grid, in pixels.
HEADER = 36
ROW = 22


def column(program, table, number, first=0, last=3):
    """A stretch of a column of a table."""
    return [program.cell(table, row, number) for row in range(first, last + 1)]


def avvio(place, album):
    program = place.start()
    window = program.window("Avvio")
    find = program.find
    album.take(
        "avvio", window,
        target(find("Per cominciare", "panel"), side="i"),
        target(find("Che cosa stampare", "panel"), side="i"),
        target([find("Database", "text"), find("Sfoglia il database")]),
        target(find(None, "combo box")),
        target(find("Moduli pubblicati per ogni anno dal 2019 (non ufficiali)")),
        target(find("Strumenti")),
        target(find("Dati propri")),
        target(find("Avvia")))


def conti(place, album):
    program = place.start("--profile", place.profile(246))
    window = program.window(WIZARD)
    find = program.find
    for year in ("Da anno", "Ad anno"):
        program.click(find(year, "combo box"))
        program.keys("Down", "Return")
    years = [find("Da anno", "label"), find("2016", "combo box", number=0), find("2016", "combo box", number=1)]
    album.take(
        "conti", window,
        target(part(find("Passi", "filler"), top=30), side="i"),
        target(find("Lavoro in corso", "filler"), side="i"),
        target(years),
        target(find("Ricostruzione conti individuali")),
        target(find("Opzione selezione", "panel"), side="i"),
        target([find("Da percipiente, Codice"), find("Ricerca, A percipiente")], frame=True),
        target([find("Da causale pagamento, Codice causale"), find("Ricerca, A causale pagamento")], frame=True),
        target(find("Avanti >")))


def ricerca(place, album):
    program = wizard(place)
    program.focus(program.find("Da percipiente, Codice"))
    program.keys("F4")
    window = program.window("Ricerca")
    program.write("co")
    find = program.find
    table = find("Righe trovate")
    album.take(
        "ricerca", window,
        target(find("Testo da cercare")),
        target(program.cell(table, 1, 1), side="i"),
        target(part(find("11 di 45"), width=60), side="r"),
        target(find("OK")))


def anteprima(place, album):
    program = place.start("--profile", place.profile(246))
    program.window(WIZARD)
    for year in ("Da anno", "Ad anno"):
        program.click(program.find(year, "combo box"))
        program.keys("Down", "Return")
    program.press("Avanti >")
    program.window(f"{WIZARD} 2")
    program.press("Avvia")
    window = program.window("Anteprima")
    program.resize(window, 1000, 660)
    find = program.find
    album.take(
        "anteprima", window,
        target([find("Prima"), find("Ultima")]),
        target(find("Cerca nelle pagine"), side="i"),
        target(find("Miniature delle pagine"), side="i"),
        target([find("Ingrandisci"), find("Larghezza")]),
        target(find("Testo")),
        target(find("Stampa…")),
        target(find("Salva…")))


def certificazioni(place, album):
    program = place.start("--profile", place.profile(247))
    window = program.window(WIZARD)
    find = program.find
    program.click(find("Anno pagamento compensi", "combo box"))
    program.keys("Down", "Return")
    album.take(
        "certificazioni", window,
        target(find("Stampa certificazione dei compensi")),
        target(find("2016", "combo box")),
        target([find("Da percipiente, Codice"), find("Ricerca, A causale pagamento")], frame=True),
        target(find("Avanti >")))


def wizard(place, kind="Comunicazione"):
    """The first step for a file of 2016."""
    program = place.start("--profile", place.profile(247))
    program.window(WIZARD)
    program.click(program.find("Creazione tracciato ministeriale e stampa moduli"))
    program.click(program.find(kind))
    program.click(program.find("Anno pagamento compensi", "combo box"))
    program.keys("Down", "Return")
    return program


def grid(place, kind="Comunicazione"):
    program = wizard(place, kind)
    program.press("Avanti >")
    program.window(f"{WIZARD} 2")
    return program


def last_step(place):
    program = grid(place)
    program.press("Avanti >")
    program.window(f"{WIZARD} 3")
    return program


def primo_passo(place, album):
    program = wizard(place)
    find = program.find
    album.take(
        "primo_passo", program.window(WIZARD),
        target(part(find("Passi", "filler"), top=30), side="i"),
        target(find("Creazione tracciato ministeriale e stampa moduli")),
        target(find("Tipo comunicazione", "panel"), side="i"),
        target(find("2016", "combo box")),
        target([find("Da percipiente, Codice"), find("Ricerca, A causale pagamento")], frame=True),
        target(find("Informazioni")),
        target(find("Avanti >")))


def griglia(place, album):
    program = grid(place)
    find = program.find
    table = find("Elenco")
    # One row is left out, another one is corrected.
    program.click(program.cell(table, 5, 2))
    program.keys("space")
    program.click(program.cell(table, 3, 2))
    program.keys("Return")
    correct(program)
    program.press("OK")
    window = program.window(f"{WIZARD} 2")
    album.take(
        "griglia", window,
        target(find("Cerca percipiente", "text"), side="i"),
        target(find("Filtra le righe"), side="i"),
        target(find_filters(program), side="r"),
        target(part(table, 4, HEADER, 56, 6 * ROW), frame=True, side="i"),
        target(column(program, table, 0, 0, 5)),
        target(part(table, 140, 2, 640, HEADER - 2), side="i"),
        target([find("Scelte", "label"), program.beginning("Tutte, Addizionali")], side="r"),
        target([find("Seleziona tutto"), find("Deseleziona tutto")]))


def find_filters(program):
    return [program.find(None, "check box", number=i) for i in range(5)]


def correct(program):
    """An amount of the open editor that differs from the accounts."""
    program.window("Certificazione compensi")
    box = program.find("8 Imponibile", "text")
    program.click(box)
    program.keys("ctrl+a")
    program.write("1450,00")
    program.keys("Tab")
    return box


def editor(place, album):
    program = grid(place)
    program.click(program.cell(program.find("Elenco"), 3, 2))
    program.keys("Return")
    box = correct(program)
    find = program.find
    window = program.window("Certificazione compensi")
    album.take(
        "editor", window,
        target(find("Altri moduli (0)")),
        target(find("Dati aggiuntivi")),
        target(find("Dati del percipiente", "panel"), side="i"),
        target(find("4 Ammontare lordo corrisposto", "text")),
        target(program.beginning("5 + 7")),
        target(box),
        target([find("OK e riga precedente"), find("OK e riga successiva")], side="r"),
        target(find("OK")))


def passo_finale(place, album):
    program = last_step(place)
    find = program.find
    window = program.window(WIZARD)
    album.take(
        "passo_finale", window,
        target(find("Percorso per la creazione della Certificazione Unica", "text"), side="i"),
        target(find("Tipo di stampa", "panel"), side="i"),
        target(find("Data della firma", "panel"), side="i"),
        target(find("Uso di intermediari")),
        target(find("Che cosa farà Avvia", "panel"), side="i"),
        target(find("Copia di sicurezza…")),
        target(find("Avvia")))


def esito(place, album):
    program = last_step(place)
    program.press("Avvia")
    box = program.window("Autocomposizione")
    find = program.find
    album.take(
        "esito", rectangle(program.windows()[0]),
        target(program.beginning("Il file generato")),
        target(program.beginning("/var", "push button")),
        target(program.beginning("Creato")),
        target(find("Apri la cartella")),
        target(find("Vedi i rilievi")),
        over=box)


def dati_mancanti(place, album):
    program = last_step(place)
    # The step begins on the date.
    program.keys("ctrl+a", "Delete")
    program.click(program.find("Uso di intermediari"))
    program.press("Avvia")
    window = program.window("Dati mancanti")
    program.resize(window, 800, 260)
    find = program.find
    table = find("Dati mancanti", "table")
    album.take(
        "dati_mancanti", window,
        target(part(table, 2, 2, 160, 22), side="i"),
        target(part(program.beginning("Il file non"), width=540), side="r"),
        target(find("Copia tutto")))


def protocollo(place, album):
    program = grid(place, "Sostituzione")
    program.press("Protocollo sostituzione")
    box = program.window("Protocollo")
    find = program.find
    album.take(
        "protocollo", rectangle(program.windows()[0]),
        target(find("Protocollo", "text")),
        target(find("Progressivo", "text")),
        target(find("Aggiorna dove già presente"), side="r"),
        target(program.beginning("Solo le righe: Senza protocollo", "check box")),
        over=box)


SCENES = [avvio, conti, ricerca, anteprima, certificazioni, primo_passo, griglia, editor, passo_finale, esito,
          dati_mancanti, protocollo]
