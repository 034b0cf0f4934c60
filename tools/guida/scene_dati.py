"""The pictures of the forms for own data and of the imports."""

from album import caption, part, target
from luogo import WORK

TABLE = """CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;RitenutaAcconto;Note
P001;A;20/03/2018;1/2018;1200,00;240,00;acconto
P002;A;12/04/2018;7;600,00;120,00;
P012;A;14/05/2018;12/A;500,56;90,11;
P030;A;28/12/2017;44;2000,00;400,00;saldo
P017;M;15/12/2017;31;1810,00;362,00;
"""


def own_data(place):
    program = place.start()
    program.window("Avvio")
    program.choose("Dati propri", 2)
    program.window("Dati propri")
    return program


def azienda(place, album):
    program = own_data(place)
    program.press("Modifica...")
    window = program.window("Azienda")
    find = program.find
    album.take(
        "azienda", window,
        caption(find("Codice fiscale", "label")),
        target(part(program.beginning("Codice di una ditta"), width=205), side="r"),
        caption(find("Codice attività", "label")),
        target(find("Ricerca, Comune")),
        target(find("Rappresentante", "panel"), side="i"),
        target(find("Per la Certificazione Unica", "panel"), side="i"),
        target(find("Registra")))


def percipiente(place, album):
    program = own_data(place)
    program.press("Percipienti...")
    program.window("Percipienti")
    # A person who lives in Italy, without what is unusual.
    program.write("costa")
    program.keys("Return")
    window = program.window("Percipiente")
    find = program.find
    album.take(
        "percipiente", window,
        caption(find("Codice", "label")),
        caption(find("Codice fiscale", "label")),
        target(part(program.beginning("Codice di una donna"), width=345), side="r"),
        target(find("Nascita", "panel"), side="i"),
        target(find("Domicilio fiscale", "panel"), side="i"),
        target(find("Per la Certificazione Unica", "panel"), side="i"),
        target(find("Registra")))


def compenso(place, album):
    program = own_data(place)
    program.press("Compensi...")
    program.window("Compensi")
    program.press("Modifica...")
    window = program.window("Compenso")
    find = program.find
    album.take(
        "compenso", window,
        caption(find("Percipiente", "label")),
        caption(find("Causale", "label")),
        caption(find("Data di pagamento", "label")),
        caption(find("Compenso", "label")),
        caption(find("Ritenuta d'acconto", "label")),
        caption(find("Netto pagato", "label")),
        target(find("Registra")))


def importing(place):
    """The table of another program, with one amount that is unusual."""
    file = WORK / "compensi.csv"
    file.write_text(TABLE, encoding="utf-8")
    program = place.start("--importa", file)
    program.window("Importa")
    return program


def onward(program, step):
    program.press("Avanti")
    program.find(step, "label")
    program.settle()


def colonne(place, album):
    program = importing(place)
    onward(program, "Lettura")
    onward(program, "Colonne")
    find = program.find
    program.click(program.cell(find("Colonne da importare"), 3, 0))
    album.take(
        "colonne", program.window("Importa"),
        target(find("Passi", "list"), side="i"),
        target(find("Colonne da importare"), side="i"),
        target(find("Colonne del file"), side="i"),
        target(find("Valore uguale in ogni riga")),
        target(find("Significati…")),
        target(find("Ricorda per questi titoli")),
        target(find("Avanti")))


def importazione(place, album):
    program = importing(place)
    for step in ("Lettura", "Colonne", "Percipienti", "Compensi", "Prova"):
        onward(program, step)
    find = program.find
    album.take(
        "importazione", program.window("Importa"),
        target(find("Passi", "list"), side="i"),
        target(part(program.beginning("5 nuovi"), width=540), side="r"),
        target(find("Avvisi da accettare", "list"), side="i"),
        target([find("Anni e causali", "page tab"), find("Dati che mancano (0)", "page tab")], side="r"),
        target(find("Salva resoconto…")),
        target(find("Copia di sicurezza…")),
        target(find("Importa")))


def invoices(place):
    examples = place.documents / "esempio/fatture"
    program = place.start("--importa", examples / "pronte", examples / "da_vedere")
    program.window("Importa")
    onward(program, "Documenti")
    return program


def fatture_documenti(place, album):
    program = invoices(place)
    find = program.find
    table = find("Documenti letti")
    # One that can be read in several ways.
    row = next(r for r in range(58) if "da scegliere" in program.cell(table, r, 0).get_name())
    program.click(program.cell(table, 2, 1))
    # One step further and back: the row is in sight beside its details, too.
    program.keys(*["Down"] * (row - 2), "Down", "Up")
    album.take(
        "fatture_documenti", program.window("Importa"),
        target(part(program.beginning("38 pagamenti"), width=450), side="r"),
        target(find("tutti (58)", "combo box")),
        target([find("Causale dei forfettari", "label"), find("Ricorda le causali")]),
        target(find("Documenti letti"), side="i"),
        target([program.beginning("Come si legge"), find("Scegli")], side="a"),
        target(find("Escludi i documenti evidenziati")),
        target(find("Avanti")))


def fatture_pagamenti(place, album):
    program = invoices(place)
    onward(program, "Percipienti")
    onward(program, "Compensi")
    find = program.find
    program.keys("alt+d", "Down", "Down")
    album.take(
        "fatture_pagamenti", program.window("Importa"),
        target(find("quelle dei documenti, come proposta", "combo box")),
        target(part(program.beginning("38 nuovi"), width=320), side="r"),
        target(program.beginning("tutte (", "combo box")),
        target(find("Righe da importare"), side="i"),
        target(program.beginning("Pagati nel 2017")),
        target(program.beginning("compenso 1.500,00")),
        target(find("Avanti")))


SCENES = [azienda, percipiente, compenso, colonne, importazione, fatture_documenti, fatture_pagamenti]
