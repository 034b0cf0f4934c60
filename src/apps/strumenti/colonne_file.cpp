// The columns of the tables of a file.

#include "apps/strumenti/finestra_file.h"
#include "apps/strumenti/tabella_vista.h"

namespace cu::strumenti {
namespace {

constexpr int kCampoMassimo = 110;
constexpr int kTestoMassimo = 440;

}  // namespace

std::vector<Colonna> FinestraFile::colonneCertificati() {
  const auto di = [this](std::size_t riga) -> const RigaCertificato& { return file_->certificati()[riga]; };
  const auto testo = [di](std::string RigaCertificato::*quale) {
    return [di, quale](std::size_t riga) { return qs(di(riga).*quale); };
  };
  const auto importo = [di](const char* chiave, const char* titolo, std::int64_t RigaCertificato::*quale) {
    return Colonna{chiave, titolo, [di, quale](std::size_t riga) { return importoMostrato(di(riga).*quale); },
                   true, [di, quale](std::size_t riga) { return QVariant(qlonglong(di(riga).*quale)); }};
  };
  return {
      {"numero", "N.", [di](std::size_t riga) { return QString::number(di(riga).numero); }, true,
       [](std::size_t riga) { return QVariant(qulonglong(riga)); }},
      {"rilievi", "Rilievi", [di](std::size_t riga) { return segni(di(riga).errori, di(riga).avvisi); },
       false,
       [di](std::size_t riga) {
         constexpr qulonglong kErrore = 1000000;
         return QVariant(qulonglong(di(riga).errori) * kErrore + qulonglong(di(riga).avvisi));
       },
       [di](std::size_t riga) { return segniDetti(di(riga).errori, di(riga).avvisi); }},
      {"percipiente", "Codice fiscale", testo(&RigaCertificato::percipiente)},
      {"nome", "Nome", testo(&RigaCertificato::nome)},
      {"causale", "Caus.", testo(&RigaCertificato::causale)},
      importo("lordo", "Lordo", &RigaCertificato::lordo),
      importo("nonSoggette", "Non soggette", &RigaCertificato::nonSoggette),
      importo("imponibile", "Imponibile", &RigaCertificato::imponibile),
      importo("acconto", "Rit. acconto", &RigaCertificato::acconto),
      importo("imposta", "Rit. imposta", &RigaCertificato::imposta),
      {"operazione", "Operazione",
       [di](std::size_t riga) {
         const std::string& operazione = di(riga).operazione;
         return operazione == "A"   ? QStringLiteral("A annullamento")
                : operazione == "S" ? QStringLiteral("S sostituzione")
                                    : qs(operazione);
       }},
      {"protocollo", "Protocollo",
       [di](std::size_t riga) {
         const RigaCertificato& sua = di(riga);
         return qs(sua.protocollo + (sua.progressivo.empty() ? "" : " " + sua.progressivo));
       }},
  };
}

std::vector<Colonna> FinestraFile::colonneRilievi() {
  const auto di = [this](std::size_t riga) -> const lettura::Rilievo& { return file_->rilievi()[riga]; };
  const auto voce = [di](std::size_t riga) -> const lettura::VoceRegola& {
    return lettura::voce(di(riga).regola);
  };
  const auto diChi = [this](std::size_t riga) {
    const auto quale = certificatoDelRilievo(riga);
    return quale ? QStringLiteral("n. %1").arg(file_->certificati()[*quale].numero)
                 : QStringLiteral("di tutto il file");
  };
  const auto ordineDiChi = [this](std::size_t riga) {
    const auto quale = certificatoDelRilievo(riga);
    return QVariant(quale ? qlonglong(*quale) : qlonglong(-1));
  };
  return {
      {"gravita", "Gravità", [voce](std::size_t riga) { return detto(voce(riga).gravita); }},
      {"codice", "Regola", [voce](std::size_t riga) { return qs(std::string(voce(riga).codice)); }},
      {"testo",
       "Che cosa non va",
       [di](std::size_t riga) { return qs(di(riga).testo); },
       false,
       {},
       {},
       kTestoMassimo},
      {"dove", "Certificazione", diChi, false, ordineDiChi},
      {"riga", "Riga", [di](std::size_t riga) { return QString::number(di(riga).riga); }, true,
       [di](std::size_t riga) { return QVariant(qlonglong(di(riga).riga)); }},
      {"posizione", "Pos.", [di](std::size_t riga) { return QString::number(di(riga).posizione); }, true,
       [di](std::size_t riga) { return QVariant(di(riga).posizione); }},
      {"campo", "Campo", [di](std::size_t riga) { return qs(di(riga).campo); }, false, {}, {}, kCampoMassimo},
  };
}

std::vector<Colonna> FinestraFile::colonneCaselle() {
  const auto di = [this](std::size_t riga) -> const CasellaMostrata& { return caselleMostrate_[riga]; };
  return {
      {"modulo", "Modulo",
       [di](std::size_t riga) {
         return di(riga).modulo == 0 ? QStringLiteral("dati") : QString::number(di(riga).modulo);
       },
       false, [](std::size_t riga) { return QVariant(qulonglong(riga)); }},
      {"codice", "Codice", [di](std::size_t riga) { return qs(di(riga).codice); }},
      {.chiave = "valore",
       .titolo = "Valore",
       .testo = [di](std::size_t riga) { return qs(di(riga).testo); },
       .importi = true},
      {"nome", "Casella", [di](std::size_t riga) { return qs(di(riga).nome); }},
  };
}

}  // namespace cu::strumenti
