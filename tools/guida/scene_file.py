"""The pictures of the windows for telematic files."""

import json

from album import part, target
from luogo import WORK


def written(place):
    """The file of 2016, marked as sent."""
    folder = WORK / "correzioni"
    place.cuctl("correct", "--profile", place.profile(247), "--year", 2016, "--folder", folder, "--yes",
                allowed=(0, 1, 2, 3))
    file = next(folder.rglob("*.cur"))
    place.cuctl("sent", file, "--profile", place.profile(247), "--date", "2017-03-06")
    return file


def file_telematico(place, album):
    program = place.start("--profile", place.profile(247), written(place))
    window = program.window("CUR_")
    program.resize(window, 1040, 760)
    find = program.find
    table = find("Certificazioni", "table")
    program.click(program.cell(table, 4, 3))
    findings = find("Rilievi", "table")
    program.click(program.cell(findings, 0, 2))
    album.take(
        "file_telematico", window,
        target(part(program.beginning("Fornitura"), width=640), side="r"),
        target(find("Cerca fra le certificazioni"), side="i"),
        target(find("Solo con rilievi")),
        target(program.cell(table, 4, 1)),
        target(find("Modulo", "filler"), side="i"),
        target(find("Caselle della certificazione"), side="i"),
        target(findings, side="i"),
        target(find("Confronta con i conti…")))


def confronto(place, album):
    # Two amounts of the file differ from the accounts.
    text = written(place).read_text(encoding="cp1252")
    for cell, other in (("AU001009          473,33", "AU001009          473,34"),
                        ("AU001009          839,26", "AU001009          830,00")):
        assert cell in text
        text = text.replace(cell, other)
    file = WORK / "CUR_2016.cur"
    file.write_text(text, encoding="cp1252", newline="")
    program = place.start("--profile", place.profile(247), file)
    program.window("CUR_")
    program.press("Confronta con i conti…")
    window = program.window("Confronto")
    program.resize(window, 1040, 680)
    find = program.find
    table = find("Certificazioni a confronto")
    program.click(program.cell(table, 0, 2))
    album.take(
        "confronto", window,
        target(part(program.beginning("CUR_2016"), width=400), side="r"),
        target(find("Solo le differenze")),
        target(table, side="i"),
        target(find("Caselle a confronto"), side="i"),
        target(find("Apri il file")))


def receipt(place, file):
    """The answer of the Agency to the first twelve certificates; the fourth one is rejected."""
    rows = ["CodiceFiscale;Causale;Protocollo;Progressivo;Esito;Motivo"]
    for agent in json.loads(place.cuctl("inspect", file, "--json", allowed=(0, 1, 2, 3)))["agents"]:
        for number, one in enumerate(agent["certificates"][:12], 1):
            answer = ("%s;%s;;;scartata;Codice fiscale non presente in anagrafe" % (one["payee"], one["reason"])
                      if number == 4 else
                      "%s;%s;17030612345678901;%06d;accettata;" % (one["payee"], one["reason"], number))
            rows.append(answer)
    answers = WORK / "ricevuta.csv"
    answers.write_text("\n".join(rows) + "\n", encoding="utf-8")
    return answers


def stato_invii(place, album):
    answers = receipt(place, written(place))
    place.cuctl("receipt", answers, "--profile", place.profile(247), "--apply")
    # The state is that of the start window's own database: the worked one takes its place.
    (place.data / "dimostrativo.db").write_bytes((WORK / "demo.db").read_bytes())
    program = place.start()
    program.window("Avvio")
    program.press("Strumenti")
    program.keys("s")
    window = program.window("Stato")
    program.resize(window, 1040, 660)
    program.click(program.find("2017", "combo box"))
    program.keys("Down", "Return")
    program.find("2016", "combo box")
    find = program.find
    filters = [program.beginning("✓ Tutte", "check box"), program.beginning("In attesa", "check box")]
    program.click(program.cell(find("Certificazioni dell'anno"), 3, 2))
    album.take(
        "stato_invii", window,
        target(find("2016", "combo box")),
        target(filters, side="r"),
        target(find("Certificazioni dell'anno"), side="i"),
        target(find("Caselle cambiate dopo l'accettazione"), side="i"),
        target(find("Segna come inviato…"), side="b"),
        target(find("Leggi ricevuta…"), side="b"),
        target(find("Scrivi correzioni…"), side="b"),
        room=16)


def quadro(place, album):
    database = place.data / "dimostrativo.db"
    database.unlink()
    place.cuctl("create", "--database", f"sqlite:{database}", "--companies", 12, "--payees", 6, "--years", "2016-2017")
    # The first ones are written, some of them sent.
    profile = WORK / "aziende.toml"
    profile.write_text(place.profile(247).read_text(encoding="utf-8").replace("sqlite:demo.db", f"sqlite:{database}"),
                       encoding="utf-8")
    folder = WORK / "file"
    companies = [part for number in (2, 3, 5, 6, 8, 9, 11) for part in ("--company", number)]
    place.cuctl("make", "--profile", profile, "--year", 2017, *companies, "--folder", folder, "--yes")
    for number in (2, 3, 5, 6):
        own = WORK / f"azienda{number}.toml"
        own.write_text(profile.read_text(encoding="utf-8").replace("company = 1", f"company = {number}"),
                       encoding="utf-8")
        file = next(folder.glob(f"{number:07}*/CUR_*_2017.cur"))
        place.cuctl("sent", file, "--profile", own, "--date", "2018-03-05")
    program = place.start()
    program.window("Avvio")
    program.press("Strumenti")
    program.keys("q")
    window = program.window("Quadro")
    program.resize(window, 1040, 560)
    find = program.find
    program.click(program.cell(find("Anni delle aziende"), 2, 1))
    album.take(
        "quadro", window,
        target(find("2017", "combo box")),
        target([program.beginning("✓ Tutte", "check box"), program.beginning("Scartate", "check box")], side="r"),
        target(find("Anni delle aziende"), side="i"),
        target(part(program.beginning("Azienda Sintetica"), width=700), side="r"),
        target(find("Apri l'azienda"), side="b"),
        target(find("Esporta…"), side="b"),
        room=16)


SCENES = [file_telematico, confronto, stato_invii, quadro]
