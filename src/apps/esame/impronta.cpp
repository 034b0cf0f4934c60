#include "apps/esame/impronta.h"

#include <QCryptographicHash>
#include <vector>

#include "apps/comune/file_letto.h"

namespace cu {

std::string improntaFile(const std::string& percorso) {
  constexpr std::size_t kBlocco = std::size_t{1} << 20U;
  FileLetto file(percorso);
  QCryptographicHash somma(QCryptographicHash::Sha256);
  std::vector<char> blocco(kBlocco);
  while (const std::size_t letti = file.leggi(blocco.data(), blocco.size())) {
    somma.addData(QByteArrayView(blocco.data(), static_cast<qsizetype>(letti)));
  }
  return somma.result().toHex().toStdString();
}

}  // namespace cu
