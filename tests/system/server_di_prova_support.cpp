#include "system/server_di_prova_support.h"

#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <stdexcept>

#include "archive/schema.h"
#include "odbc/odbc_connection.h"
#include "system/inserimenti_support.h"

namespace cu::test {
namespace {

std::string variabile(const char* nome) {
  const char* const valore = std::getenv(nome);
  return valore == nullptr ? "" : valore;
}

std::string testoPer(const std::string& database) {
  return variabile("CU_TEST_SERVER") + ";Database=" + database;
}

std::unique_ptr<OdbcConnection> apri(const std::string& database) {
  OdbcSettings impostazioni;
  impostazioni.text = testoPer(database);
  impostazioni.password = variabile(kVariabilePassword);
  return OdbcConnection::open(impostazioni, [](const std::string&) {});
}

std::string testoDi(const CellView& cella) {
  if (cella.type() != ValueType::Date) return cella.toText();
  const std::string cifre = cella.date().toCompact();
  return cifre.substr(0, 4) + "-" + cifre.substr(4, 2) + "-" + cifre.substr(6, 2);
}

class LettoreDelServer final : public Lettore {
 public:
  explicit LettoreDelServer(const std::string& database) : connessione_(apri(database)) {}

  Tavola leggi(const std::string& domanda) override {
    RowStore lette;
    connessione_->Query(domanda, lette);
    Tavola tavola;
    std::vector<CellView> celle(lette.columns()->size());
    for (std::size_t i = 0; i < celle.size(); ++i) tavola.colonne.push_back((*lette.columns())[i].name);
    for (std::size_t i = 0; i < lette.size(); ++i) {
      lette.read(i, celle.data());
      Riga& riga = tavola.righe.emplace_back();
      for (const CellView& cella : celle) riga.push_back(testoDi(cella));
    }
    return tavola;
  }
  void esegui(const std::string& istruzione) override { connessione_->Execute(istruzione); }
  // The server's own rule: a quote in a literal is doubled, no other character is escaped.
  void esegui(const std::string& domanda, const std::vector<std::string>& testi) override {
    std::string istruzione;
    std::size_t quale = 0;
    for (const char c : domanda) {
      if (c == '?') {
        istruzione += "'" + raddoppiato(testi.at(quale++)) + "'";
      } else {
        istruzione += c;
      }
    }
    connessione_->Execute(istruzione);
  }
  std::vector<std::string> tavole() override {
    return elenco("SELECT name FROM dbo.sysobjects WHERE type IN ('U', 'V') ORDER BY name");
  }
  std::string nellAnno(const std::string& colonna, const std::string& anno) const override {
    return "YEAR(" + colonna + ") = " + anno;
  }

 private:
  std::unique_ptr<OdbcConnection> connessione_;
};

}  // namespace

bool sulServer() { return !variabile("CU_TEST_SERVER").empty(); }

DatabaseDelServer::DatabaseDelServer() {
  static int quanti = 0;
  nome_ = "cu_prova_" + std::to_string(::getpid()) + "_" + std::to_string(++quanti);
  apri("master")->Execute("CREATE DATABASE " + nome_ + " COLLATE Latin1_General_CI_AS");
}

DatabaseDelServer::DatabaseDelServer(const DatabaseDelServer& modello) : DatabaseDelServer() {
  const auto connessione = apri(nome_);
  creaSchema(*connessione);
  creaRegistro(*connessione);
  creaMarca(*connessione);
  for (const OggettoSchema& oggetto : oggettiSchema()) {
    if (oggetto.vista) continue;
    const std::string tabella = ".dbo." + std::string(oggetto.nome);
    connessione->Execute("INSERT INTO " + nome_ + tabella + " SELECT * FROM " + modello.nome_ + tabella);
  }
}

DatabaseDelServer::~DatabaseDelServer() {
  try {
    apri("master")->Execute("DROP DATABASE " + nome_);
  } catch (const std::exception& errore) {
    std::cerr << nome_ << ": " << errore.what() << '\n';
  }
}

std::string DatabaseDelServer::indirizzo() const { return "odbc:" + testoPer(nome_); }

std::unique_ptr<Lettore> DatabaseDelServer::lettore() const {
  return std::make_unique<LettoreDelServer>(nome_);
}

}  // namespace cu::test
