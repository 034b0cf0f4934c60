#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/date.h"
#include "data/database.h"
#include "host/log_grid.h"
#include "host/report.h"

namespace cu {

// The error number of a session that cannot start.
inline constexpr int kErrorSessionRefused = -2147221503;

// A process passed by the launcher: its name, and its number, which is the run mode.
struct ProcessoHost {
  std::string nome;
  std::int32_t idFunzione = 0;
};

// The session passed by the launcher. Before start() only the program's name and the title are available.
class SessioneHost {
 public:
  virtual ~SessioneHost() = default;
  virtual void start(std::int32_t window) = 0;  // raises Error -2147221503 when the session cannot be bound
  virtual std::string settingsSection() = 0;    // deleted when the wizard unloads
  virtual void setProgramName(const std::string& name) = 0;
  virtual std::int32_t helpContext() = 0;
  virtual std::int32_t IDUtente() = 0;
  virtual const std::vector<ProcessoHost>& processi() = 0;
  virtual DatabaseHost& database() = 0;  // raises an error when the session could not be bound
  virtual std::string title() = 0;
  virtual std::int32_t IDFiliale() = 0;
  virtual std::int32_t IDAzienda() = 0;
  virtual std::string helpFolder() = 0;  // without a trailing separator
};

// The user, company and branch on whose rows the operations work; the session outlives it.
struct Ambito {
  DatabaseHost* database = nullptr;
  std::int32_t idUtente = 0;
  std::int32_t idAzienda = 0;
  std::int32_t idFiliale = 0;
};
inline Ambito ambitoDi(SessioneHost& sessione) {
  return {&sessione.database(), sessione.IDUtente(), sessione.IDAzienda(), sessione.IDFiliale()};
}

struct Valuta {
  std::int16_t decimali = 0;  // a flag; 0 or not 0
  std::string simbolo;
  std::string separatoreDecimale;
  std::string separatoreMigliaia;
};

// The currency valid on a day.
class ValutaHost {
 public:
  virtual ~ValutaHost() = default;
  virtual Valuta valuta(Connection& connection, Date day, std::int32_t idUtente, std::int32_t idAzienda) = 0;
};

// The suite's numbered texts.
class TestiSuite {
 public:
  virtual ~TestiSuite() = default;
  virtual std::string text(std::int16_t number) = 0;
};

// "Ricostruzione conti individuali": sums the payments into the accounts of one company and year, for the
// payees and reasons selected by the filter (" AND CodicePercipiente >= '...'"; empty for all).
class RicostruzioneConti {
 public:
  virtual ~RicostruzioneConti() = default;
  virtual void setDatabase(DatabaseHost& database) = 0;
  virtual void setAzienda(std::int32_t idAzienda) = 0;
  virtual void setFlag(bool value) = 0;
  virtual void setFiltro(const std::string& filtro) = 0;
  virtual void ricostruisci(std::int16_t anno) = 0;
  // Of the last rebuild: the number of accounts created, and of those whose amounts changed.
  virtual std::size_t contiCambiati() const = 0;
};

// Creates the objects that the wizard needs, a new one for each use.
class HostFactory {
 public:
  virtual ~HostFactory() = default;
  virtual std::unique_ptr<TestiSuite> createTesti() = 0;
  virtual std::unique_ptr<SessioneHost> createSessione() = 0;
  virtual std::unique_ptr<ValutaHost> createValuta() = 0;
  virtual std::unique_ptr<RicostruzioneConti> createRicostruzione() = 0;
  virtual std::unique_ptr<LogGrid> createLogGrid() = 0;
  virtual std::unique_ptr<ReportEngine> createReport() = 0;
  virtual std::unique_ptr<PrintRun> createPrintRun() = 0;  // destroyed before the factory
  virtual std::unique_ptr<PrinterDialog> createPrinterDialog() = 0;
};

}  // namespace cu
