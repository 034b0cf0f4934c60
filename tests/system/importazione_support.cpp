#include "system/importazione_support.h"

#include <filesystem>
#include <stdexcept>

#include "system/lettore_db_support.h"

namespace cu::test {
namespace {

constexpr int kPercipientiImportati = 200;
constexpr int kCompensiImportati = 3000;

std::string codicePercipiente(int numero) { return "P" + std::to_string(1000 + numero); }

std::string dueCifre(int numero) { return (numero < 10 ? "0" : "") + std::to_string(numero); }

std::string tabellaPercipienti() {
  std::string testo = "Codice;CodiceFiscaleEstero;Cognome;NonResidente;Nazione\n";
  for (int i = 0; i < kPercipientiImportati; ++i) {
    testo += codicePercipiente(i) + ";X" + std::to_string(i) + ";Ditta " + std::to_string(i) + ";S;Francia\n";
  }
  return testo;
}

std::string tabellaCompensi() {
  std::string testo =
      "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;Onorario;SommeNonSoggette;CodiceNonSoggette;"
      "RitenutaAcconto\n";
  for (int i = 0; i < kCompensiImportati; ++i) {
    const int anno = 2016 + i % 3;
    testo += codicePercipiente(i % kPercipientiImportati) + (i % 2 == 0 ? ";A;" : ";M;");
    testo += dueCifre(1 + i % 28) + "/" + dueCifre(1 + i % 12) + "/" + std::to_string(anno) + ";";
    testo += std::to_string(i) + ";" + std::to_string(100 + i) + ";2,00;7;0\n";
  }
  return testo;
}

void riesci(const std::vector<std::string>& argomenti, const std::string& cartella) {
  const Esecuzione esito = esegui(argomenti, cartella);
  if (esito.codice != 0) throw std::runtime_error(esito.uscita + esito.errori);
}

// Created once for the whole program.
const std::string& modelloImportazione() {
  static const TempFolder cartella;
  static std::string file;
  if (!file.empty()) return file;
  const std::string fatto = cartella / "modello.db";
  const std::string indirizzo = "sqlite:" + fatto;
  riesci({CU_CUCTL, "create", "--database", indirizzo, "--empty"}, cartella.path());
  const std::string azienda = cartella.write(
      "azienda.csv", "CodiceFiscale;Cognome;Nome;Comune;Provincia\nRSSMRA80A01H501U;Rossi;Mario;Roma;RM\n");
  riesci({CU_CUCTL, "import", "companies", azienda, "--database", indirizzo, "--accept", "P11", "--apply"},
         cartella.path());
  const std::string percipienti = cartella.write("percipienti.csv", tabellaPercipienti());
  riesci({CU_CUCTL, "import", "payees", percipienti, "--company", "1", "--database", indirizzo, "--accept",
          "P11", "--apply"},
         cartella.path());
  file = fatto;
  return file;
}

}  // namespace

LuogoImportazione::LuogoImportazione() : LuogoImportazione(std::filesystem::temp_directory_path().string()) {}

LuogoImportazione::LuogoImportazione(const std::string& dove) : database_(dove) {
  std::filesystem::copy_file(modelloImportazione(), database());
  tabella_.write("compensi.csv", tabellaCompensi());
}

std::vector<std::string> LuogoImportazione::argomenti() const {
  return {CU_CUCTL,    "import", "payments", tabella_ / "compensi.csv", "--database", "sqlite:" + database(),
          "--company", "1",      "--apply"};
}

LuogoImportazione::Tavole LuogoImportazione::tavole() const {
  LettoreDb lettore(database());
  Tavole tavole;
  // The reader orders by four columns.
  for (const char* nome :
       {"Compenso", "ContoIndividuale", "ContoIndividualeDatiAggiuntivi", "(SELECT *, 0 FROM PeriodoIva)",
        "(SELECT *, 0 FROM AttivitaAziendaPerPeriodoIva)", "Anagrafica", "Percipiente", "CuImportazioneFile",
        "CuImportazioneContenuto", "CuImportazioneRiga", "CuImportazioneConto",
        "(SELECT IDImportazione, IDAzienda, Elenco, Stato, Nuovi, Uguali FROM CuImportazione)"}) {
    tavole[nome] = lettore.tavola(nome);
  }
  tavole["integrità"] = lettore.testo("PRAGMA integrity_check");
  return tavole;
}

const LuogoImportazione::Tavole& LuogoImportazione::prima() {
  static const Tavole tavole = LuogoImportazione().tavole();
  return tavole;
}

const LuogoImportazione::Tavole& LuogoImportazione::dopo() {
  static const Tavole tavole = [] {
    const LuogoImportazione luogo;
    riesci(luogo.argomenti(), luogo.cartella());
    return luogo.tavole();
  }();
  return tavole;
}

}  // namespace cu::test
