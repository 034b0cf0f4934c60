#include "telematic/intermediario.h"

#include "base/text.h"
#include "data/recordset.h"
#include "host/conversioni.h"

namespace cu {

std::optional<Intermediario> fnLeggiIntermediario(Connection& connessione, std::int32_t idAzienda,
                                                  const Conversioni& utilita) {
  Recordset riga;
  riga.Open(connessione,
            utilita.fnAnsi2jet("SELECT CodiceFiscaleIntermediario, TipoComunicazione, DataImpegno"
                               " FROM ConfigurazioneElencoCliFor WHERE IDAzienda = " +
                               fromInteger(idAzienda)));
  if (riga.Eof()) return std::nullopt;
  return Intermediario{.codiceFiscale = utilita.toText(riga.Get("CodiceFiscaleIntermediario")),
                       .indiceImpegno = std::int64_t{utilita.toLong(riga.Get("TipoComunicazione"))} - 1,
                       .dataImpegno = utilita.toText(riga.Get("DataImpegno"))};
}

void sbScriviIntermediario(Connection& connessione, std::int32_t idAzienda,
                           const Intermediario& intermediario, const Conversioni& utilita) {
  const std::string azienda = fromInteger(idAzienda);
  const std::string codice = utilita.literal(intermediario.codiceFiscale);
  const std::string impegno = fromInteger(intermediario.indiceImpegno + 1);
  const std::string data = utilita.literalDate(intermediario.dataImpegno);
  Recordset riga;
  riga.Open(connessione,
            utilita.fnAnsi2jet("SELECT * FROM ConfigurazioneElencoCliFor WHERE IDAzienda = " + azienda));
  if (riga.Eof()) {
    connessione.Execute(
        "INSERT INTO ConfigurazioneElencoCliFor"
        " (CodiceFiscaleIntermediario, TipoComunicazione, DataImpegno, IDAzienda) VALUES (" +
        codice + ", " + impegno + ", " + data + ", " + azienda + ")");
    return;
  }
  connessione.Execute("UPDATE ConfigurazioneElencoCliFor SET  CodiceFiscaleIntermediario = " + codice +
                      ", TipoComunicazione = " + impegno + ", DataImpegno = " + data +
                      " WHERE IDAzienda = " + azienda);
}

}  // namespace cu
