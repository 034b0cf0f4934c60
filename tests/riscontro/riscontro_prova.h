#pragma once

#include <memory>
#include <string>
#include <vector>

#include "archive/archivio.h"
#include "archive/schema.h"
#include "data/recordset.h"
#include "riscontro/registro.h"
#include "sqlite/sqlite_connection.h"

namespace cu::riscontro::prova {

inline lettura::Certificato certificato(const std::string& percipiente, const std::string& causale,
                                        const std::string& operazione = "") {
  lettura::Certificato c;
  c.percipiente = percipiente;
  c.nome = "ROSSI " + percipiente;
  c.operazione = operazione;
  c.celle = {{"DA001001", "04123450233"}, {"DA002001", percipiente}, {"DA003001", "05032018"}};
  c.moduli = {{1, 0, {{"AU001001", causale}, {"AU001004", "100,00"}}}};
  return c;
}

// The tables in memory.
class ConRegistro {
 public:
  ConRegistro() : connessione(SqliteConnection::create(":memory:")), registro(*connessione) {
    creaSchema(*connessione);
    creaRegistro(*connessione);
  }
  std::int64_t scrivi(std::vector<lettura::Certificato> certificati, std::int32_t tipo = 1) {
    int numero = 0;
    for (lettura::Certificato& c : certificati) c.numero = ++numero;
    Invio invio;
    invio.idAzienda = 1;
    invio.anno = 2017;
    invio.tipo = tipo;
    invio.nome = "CUR.cur";
    invio.impronta = "impronta" + std::to_string(++scritti_);
    invio.momento = "2018-03-05 10:30:00";
    invio.recordA = std::string(1898, 'a');
    invio.recordB = std::string(1898, 'b');
    return registro.registra(invio, certificati);
  }
  // "inviata accettata ..." in the order in which they were written.
  std::string stati() {
    std::string stati;
    for (const Registrata& r : registro.certificate(1, 2017, false)) {
      stati += (stati.empty() ? "" : " ") + std::string(nome(r.stato));
    }
    return stati;
  }

  std::unique_ptr<Connection> connessione;
  Registro registro;

 private:
  int scritti_ = 0;
};

}  // namespace cu::riscontro::prova
