#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "archive/azienda.h"
#include "archive/casuale.h"
#include "base/date.h"
#include "liste/liste.h"

namespace cu {

enum class TipoPercipiente { Persona, Ditta, PersonaEstera, DittaEstera };

// An invented payee.
struct PercipienteInventato {
  TipoPercipiente tipo = TipoPercipiente::Persona;
  std::string anagrafica;
  std::string nome;
  std::string codiceFiscale;
  std::string partitaIva;
  std::string eMail;
  std::string telefono;
  std::string cap;
  std::string indirizzo;
  std::string identificazioneEstera;
  bool femmina = false;
  Date nascita;
  std::int32_t idComuneNascita = 0;
  std::int32_t idNazionalita = 0;
  std::int32_t idComune = 0;
  std::int32_t idNazione = 0;
  bool schumacker = false;

  bool persona() const { return tipo == TipoPercipiente::Persona || tipo == TipoPercipiente::PersonaEstera; }
  bool residente() const { return tipo == TipoPercipiente::Persona || tipo == TipoPercipiente::Ditta; }
};

// Draws names, places and streets at random.
class Inventore {
 public:
  Inventore();
  // `numero` is the payee's number, from 1: VAT numbers derive from it and therefore never repeat.
  PercipienteInventato inventa(std::int32_t numero, Casuale& caso) const;
  const ComuneInLista& comune(Casuale& caso) const { return caso.scelta(comuni_); }

 private:
  void persona(PercipienteInventato& p, Casuale& caso) const;
  void ditta(PercipienteInventato& p, Casuale& caso) const;
  void residenza(PercipienteInventato& p, std::int32_t numero, Casuale& caso) const;

  std::vector<std::string_view> cognomi_;
  std::vector<std::string_view> nomiMaschili_;
  std::vector<std::string_view> nomiFemminili_;
  std::vector<std::string_view> vie_;
  std::vector<ComuneInLista> comuni_;         // existing municipalities
  std::vector<ComuneInLista> luoghiNascita_;  // existing and former municipalities
  std::vector<NazioneInLista> nazioniNascita_;
  std::vector<LocalitaEstera> localitaEstere_;
};

}  // namespace cu
