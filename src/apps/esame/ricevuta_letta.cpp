#include "apps/esame/ricevuta_letta.h"

#include <QFile>
#include <QStringList>

#include "base/error.h"

namespace cu {

// CSV without quotation marks.
std::vector<riscontro::RigaRicevuta> righeRicevuta(const std::string& percorso) {
  QFile file(QString::fromStdString(percorso));
  if (!file.open(QIODevice::ReadOnly))
    throw Error(kErrorFileNotFound, percorso + ": il file non si può aprire.");
  QStringList righe = QString::fromUtf8(file.readAll()).remove(u'\r').split(u'\n');
  if (!righe.isEmpty()) righe[0].remove(QChar(0xFEFF));
  const QStringList nomi = righe.value(0).toLower().split(u';');
  std::vector<riscontro::RigaRicevuta> lette;
  for (qsizetype i = 1; i < righe.size(); ++i) {
    if (righe[i].trimmed().isEmpty()) continue;
    const QStringList celle = righe[i].split(u';');
    const auto cella = [&](const char* nome) {
      return celle.value(nomi.indexOf(QString::fromLatin1(nome))).trimmed().toStdString();
    };
    if (!nomi.contains(QStringLiteral("codicefiscale"))) {
      throw Error(kErrorInvalidCall, percorso + ": manca la colonna \"CodiceFiscale\".");
    }
    lette.push_back({i + 1, cella("codicefiscale"), cella("causale"), cella("protocollo"),
                     cella("progressivo"), cella("esito"), cella("motivo")});
  }
  return lette;
}

}  // namespace cu
