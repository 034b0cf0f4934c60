#include "apps/comune/stampe_annotate.h"

#include <array>
#include <memory>
#include <string_view>
#include <vector>

namespace cu {
namespace {

enum ColonnaAnnotata : std::size_t { kCartella, kNome, kReport, kFatta, kColonneAnnotate };

}  // namespace

StampeAnnotate::StampeAnnotate() {
  righe_.setColumns(
      std::make_shared<const Columns>(std::vector<Column>{{"Cartella"}, {"Nome"}, {"Report"}, {"Fatta"}}));
}

void StampeAnnotate::annota(const PrintNote& nota) {
  const std::string_view file = nota.file;
  const std::size_t barra = file.find_last_of("/\\");
  const std::size_t nome = barra == std::string_view::npos ? 0 : barra + 1;
  righe_.beginRow();
  righe_.text(file.substr(0, nome));
  righe_.text(file.substr(nome));
  righe_.text(nota.report);
  righe_.integer(nota.written ? 1 : 0);
  righe_.endRow();
}

StampeAnnotate::Una StampeAnnotate::operator[](std::size_t quale) const {
  std::array<CellView, kColonneAnnotate> celle;
  righe_.read(quale, celle.data());
  return {std::string(celle[kCartella].text()) + std::string(celle[kNome].text()),
          std::string(celle[kReport].text()), celle[kFatta].flag()};
}

}  // namespace cu
