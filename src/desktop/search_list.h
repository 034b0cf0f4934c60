#pragma once

#include <QDialog>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

#include "desktop/input_drain.h"
#include "desktop/search_model.h"

class QLineEdit;
class QTableView;

namespace cu::desktop {

class ElidedLine;

// A search list: the user types to search, and chooses with the arrows and Enter or by a double click.
// Further columns are read while the list can be used.
class SearchDialog : public QDialog {
 public:
  SearchDialog(QWidget* parent, const QString& title, Recordset& rows, const QStringList& captions,
               const QString& typed, const FurtherColumns& further = {});
  // Keys pressed before the list was shown; they are processed when it is.
  void typeAhead(Keys keys);
  struct Chosen {
    std::int64_t record = 0;
    std::string code;
    std::string description;
  };
  const std::optional<Chosen>& chosen() const { return chosen_; }
  SearchModel& model() { return model_; }
  QLineEdit* box() const { return box_; }
  QTableView* table() const { return table_; }
  // How many rows there are, or that there are none; whether further columns are missing.
  QString words() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void take();
  void narrow(const QString& typed);
  void placeColumns(int further);
  void readFurther(const FurtherColumns& further);
  void selectRow(int row);
  void tell();

  SearchModel model_;
  QLineEdit* box_;
  QTableView* table_;
  ElidedLine* count_;
  FurtherReader* reader_;
  QString furtherNames_;
  QString failure_;
  std::optional<Chosen> chosen_;
};

}  // namespace cu::desktop
