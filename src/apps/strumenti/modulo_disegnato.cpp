#include "apps/strumenti/modulo_disegnato.h"

#include <map>
#include <tuple>
#include <utility>

#include "base/text.h"
#include "base/windows1252.h"
#include "lettura/valori.h"
#include "modello/riconoscimento.h"

namespace cu::strumenti {
namespace {

using reporting::FormOfFile;

FormOfFile::Cells celle(const std::vector<lettura::Valore>& valori) {
  FormOfFile::Cells fatte;
  fatte.reserve(valori.size());
  for (const lettura::Valore& valore : valori) fatte.push_back({valore.codice, valore.testo});
  return fatte;
}

// A field of a record B, by its name.
class CampiB {
 public:
  CampiB(const std::string& testo, std::int32_t anno)
      : riga_(a1252(testo)), anno_(anno), modello_(modello::modelloDelRecordB(anno, riga_)) {}
  const modello::Modello& modello() const { return modello_; }
  std::string operator()(std::string_view nome) const {
    for (const modello::Tavola tavola : modello::tipoB(anno_, modello_)) {
      for (const modello::CampoRecord& campo : tavola) {
        if (campo.nome != nome) continue;
        const auto inizio = static_cast<std::size_t>(campo.posizione - 1);
        if (inizio >= riga_.size()) return {};
        const std::string suo = riga_.substr(inizio, static_cast<std::size_t>(campo.lunghezza));
        return da1252(trim(suo));
      }
    }
    return {};
  }

 private:
  std::string riga_;
  std::int32_t anno_;
  const modello::Modello& modello_;
};

}  // namespace

FormOfFile moduloDi(const lettura::Certificato& certificato, const lettura::Sostituto& sostituto,
                    std::int32_t anno) {
  FormOfFile modulo;
  modulo.year = anno;
  modulo.kind = certificato.operazione == "A" ? 2 : certificato.operazione == "S" ? 3 : 1;
  modulo.protocol = certificato.protocollo;
  modulo.progressive = certificato.progressivo;
  modulo.identity = celle(certificato.celle);
  for (const lettura::Modulo& uno : certificato.moduli) modulo.modules.push_back(celle(uno.celle));
  const CampiB campo(sostituto.testo, anno);
  modulo.table = &campo.modello();
  modulo.representative = trim(campo("Nome rappresentante") + " " + campo("Cognome rappresentante"));
  modulo.intermediary = campo("Cod. Fisc. intermediario");
  const std::string impegno = campo("Impegno a trasmettere via telem. dich.");
  modulo.commitment = impegno == "1" ? 1 : impegno == "2" ? 2 : 0;
  modulo.commitmentDay = lettura::giorno(campo("Data dell'impegno")).value_or(Date());
  return modulo;
}

std::unique_ptr<reporting::PreviewPages> disegna(const lettura::Certificato& certificato,
                                                 const lettura::Sostituto& sostituto, std::int32_t anno,
                                                 std::vector<reporting::FormPlace>* posti) {
  return reporting::drawFormOfFile(moduloDi(certificato, sostituto, anno), "cuwizard", posti);
}

std::string nomeCasella(const std::string& codice, std::int32_t anno, const modello::Modello& modello) {
  // The captions of a form are looked up again for every certificate that is shown.
  static std::map<std::tuple<const modello::Modello*, std::int32_t, std::string>, std::string> noti;
  const auto chiave = std::make_tuple(&modello, anno, codice);
  const auto noto = noti.find(chiave);
  if (noto != noti.end()) return noto->second;
  std::string nome = reporting::boxCaption(codice, anno, modello);
  constexpr std::size_t kPrefisso = 5;
  if (!nome.empty() && codice.size() > kPrefisso) {
    nome = fromInteger(leadingInteger(codice.substr(kPrefisso))) + " - " + nome;
  }
  return noti.emplace(chiave, nome).first->second;
}

std::vector<CasellaMostrata> caselleDi(const lettura::Certificato& certificato, std::int32_t anno,
                                       const modello::Modello& modello) {
  std::vector<CasellaMostrata> caselle;
  const auto aggiungi = [&](int modulo, const std::vector<lettura::Valore>& valori) {
    for (const lettura::Valore& valore : valori) {
      caselle.push_back({modulo, valore.codice, nomeCasella(valore.codice, anno, modello), valore.testo});
    }
  };
  aggiungi(0, certificato.celle);
  for (const lettura::Modulo& modulo : certificato.moduli) aggiungi(modulo.numero, modulo.celle);
  return caselle;
}

}  // namespace cu::strumenti
