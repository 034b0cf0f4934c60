#include "schede/righe.h"

#include <utility>

namespace cu::schede {

Value testoONullo(const std::string& testo) { return testo.empty() ? Value() : Value::ofText(testo); }
Value idONullo(std::int32_t id) { return id == 0 ? Value() : Value::ofInteger(id); }
Value giornoONullo(Date giorno) { return giorno == Date() ? Value() : Value::ofDate(giorno); }
Value flag(bool valore) { return Value::ofInteger(valore ? 1 : 0); }

std::int32_t idIn(const CellView& cella) { return static_cast<std::int32_t>(cella.integer()); }
std::int32_t idIn(const Riga& riga, std::size_t colonna) { return idIn(riga.at(colonna).view()); }

Riga rigaAnagrafica(const SchedaAnagrafica& scheda) {
  return {Value::ofInteger(scheda.id),  testoONullo(scheda.anagrafica),    testoONullo(scheda.nome),
          flag(scheda.personaFisica),   testoONullo(scheda.codiceFiscale), testoONullo(scheda.partitaIva),
          testoONullo(scheda.email),    testoONullo(scheda.telefono),      testoONullo(scheda.fax),
          testoONullo(scheda.cap),      testoONullo(scheda.indirizzo),     testoONullo(scheda.sesso),
          giornoONullo(scheda.nascita), idONullo(scheda.idComuneNascita),  idONullo(scheda.idNazionalita),
          idONullo(scheda.idComune),    idONullo(scheda.idNazione)};
}

SchedaAnagrafica anagraficaDa(const CellView* riga) {
  return {.id = idIn(riga[0]),
          .anagrafica = riga[1].toText(),
          .nome = riga[2].toText(),
          .personaFisica = riga[3].flag(),
          .codiceFiscale = riga[4].toText(),
          .partitaIva = riga[5].toText(),
          .email = riga[6].toText(),
          .telefono = riga[7].toText(),
          .fax = riga[8].toText(),
          .cap = riga[9].toText(),
          .indirizzo = riga[10].toText(),
          .sesso = riga[11].toText(),
          .nascita = riga[12].date(),
          .idComuneNascita = idIn(riga[13]),
          .idNazionalita = idIn(riga[14]),
          .idComune = idIn(riga[15]),
          .idNazione = idIn(riga[16])};
}

Riga rigaPercipiente(const SchedaPercipiente& scheda) {
  return {Value::ofInteger(scheda.idAzienda),
          Value::ofInteger(scheda.anagrafica.id),
          testoONullo(scheda.codice),
          flag(scheda.nonResidente),
          flag(scheda.schumacker),
          testoONullo(scheda.codiceFiscaleRappresentante),
          testoONullo(scheda.codiceFiscaleEstero),
          testoONullo(scheda.codiceEnpam),
          testoONullo(scheda.codiceEnpapi),
          idONullo(scheda.idCategoriaParticolare),
          idONullo(scheda.idEventoEccezionale),
          idONullo(scheda.idEnte),
          idONullo(scheda.idCategoriaEnte)};
}

SchedaPercipiente percipienteDa(const CellView* riga, SchedaAnagrafica anagrafica) {
  return {.idAzienda = idIn(riga[0]),
          .anagrafica = std::move(anagrafica),
          .codice = riga[2].toText(),
          .nonResidente = riga[3].flag(),
          .schumacker = riga[4].flag(),
          .codiceFiscaleRappresentante = riga[5].toText(),
          .codiceFiscaleEstero = riga[6].toText(),
          .codiceEnpam = riga[7].toText(),
          .codiceEnpapi = riga[8].toText(),
          .idCategoriaParticolare = idIn(riga[9]),
          .idEventoEccezionale = idIn(riga[10]),
          .idEnte = idIn(riga[11]),
          .idCategoriaEnte = idIn(riga[12])};
}

Riga rigaCompenso(const SchedaCompenso& scheda) {
  Riga riga;
  riga.reserve(7 + kImporti);
  riga.push_back(Value::ofInteger(scheda.id));
  riga.push_back(Value::ofInteger(scheda.idAzienda));
  riga.push_back(Value::ofInteger(scheda.idAnagrafica));
  riga.push_back(Value::ofInteger(scheda.idCausale));
  riga.push_back(giornoONullo(scheda.pagamento));
  riga.push_back(testoONullo(scheda.numero));
  riga.push_back(giornoONullo(scheda.documento));
  for (const Decimal importo : scheda.importi) riga.push_back(Value::ofDecimal(importo));
  return riga;
}

SchedaCompenso compensoDa(const CellView* riga) {
  SchedaCompenso scheda{.id = idIn(riga[0]),
                        .idAzienda = idIn(riga[1]),
                        .idAnagrafica = idIn(riga[2]),
                        .idCausale = idIn(riga[3]),
                        .pagamento = riga[4].date(),
                        .numero = riga[5].toText(),
                        .documento = riga[6].date()};
  for (std::size_t i = 0; i < kImporti; ++i) scheda.importi[i] = riga[7 + i].decimal();
  return scheda;
}

}  // namespace cu::schede
