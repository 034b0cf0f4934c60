#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/session.h"
#include "suite/profilo.h"
#include "suite/traccia.h"

namespace cu {

using ApriDatabase = std::function<std::unique_ptr<Connection>()>;

// The session described by a profile. start() opens the database. Before it, and after a rejected start, only
// the program's name and the title are available: anything else raises Error 91.
class SessioneProfilo : public SessioneHost {
 public:
  // `rifiutato` is set when the start is rejected; it and the trace (may be null) outlive the session.
  SessioneProfilo(const Profilo& profilo, ApriDatabase apri, TracciaSql* traccia, bool& rifiutato)
      : profilo_(profilo), apri_(std::move(apri)), traccia_(traccia), rifiutato_(rifiutato) {}

  void start(std::int32_t window) override;
  std::string settingsSection() override { return avviata().sezioneImpostazioni; }
  void setProgramName(const std::string& name) override { nomeProgramma_ = name; }
  std::int32_t helpContext() override { return avviata().contestoGuida; }
  std::int32_t IDUtente() override { return avviata().utente; }
  const std::vector<ProcessoHost>& processi() override { return avviata().processi; }
  DatabaseHost& database() override;
  std::string title() override { return profilo_.sessione.titolo; }
  std::int32_t IDFiliale() override { return avviata().filiale; }
  std::int32_t IDAzienda() override { return avviata().azienda; }
  std::string helpFolder() override { return avviata().cartellaGuida; }

 private:
  const Profilo::Sessione& avviata() const;

  const Profilo& profilo_;
  ApriDatabase apri_;
  TracciaSql* traccia_;
  bool& rifiutato_;
  std::string nomeProgramma_;
  std::unique_ptr<DatabaseSuite> database_;
};

// One currency, the same for every day.
class ValutaProfilo : public ValutaHost {
 public:
  explicit ValutaProfilo(const Profilo::Valuta& valuta) : valuta_(valuta) {}
  Valuta valuta(Connection& connection, Date day, std::int32_t idUtente, std::int32_t idAzienda) override;

 private:
  Profilo::Valuta valuta_;
};

}  // namespace cu
