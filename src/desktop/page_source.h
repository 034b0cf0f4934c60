#pragma once

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QRectF>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

class QFile;

namespace Poppler {
class Document;
}

namespace cu::desktop {

inline constexpr double kPointsPerInch = 72;
// Dots per inch.
inline constexpr double kSmallestPage = 30;
inline constexpr double kLargestPage = 400;

// The pages of a PDF and their texts, in a thread of their own: opening a document of thousands of pages,
// drawing a page and searching do not hold up the window. All members belong to the window's thread, and so
// do the calls of the functions that receive results.
class PageSource : public QObject {
 public:
  using Texts = std::shared_ptr<const std::vector<std::string>>;

  // A page as it is to be drawn: in dots per inch, or as wide as a room in pixels where `dots` is 0.
  struct Wanted {
    int page = 0;
    double dots = 0;
    double room = 0;
    double ratio = 1;  // pixels of the screen to a pixel
    bool operator==(const Wanted&) const = default;
  };
  struct Picture {
    Wanted wanted;
    double dots = 0;  // as drawn
    QImage image;
  };
  struct Query {
    QString text;
    int from = 0;          // the page that is searched first; those before it are the last
    bool inTexts = false;  // in the texts of the pages, not in their drawings
  };
  struct Hit {
    int page = 0;
    QRectF place;        // in points, of a hit in a drawing
    qsizetype from = 0;  // the rest of a hit in a text
    qsizetype length = 0;
  };
  struct Found {
    std::vector<Hit> hits;
    int searched = 0;  // pages, all together
    bool finished = false;
  };

  // The file is open, or null where there are only texts. It is read in the thread and may be deleted
  // meanwhile.
  PageSource(std::unique_ptr<QFile> file, Texts texts);
  ~PageSource() override;

  // Called once, unless waitLoaded() has returned true; without a readable document pages() is 0.
  std::function<void()> onLoaded;
  std::function<void(const Picture&)> onPicture;
  std::function<void(int page, const QImage&)> onSmall;
  std::function<void(const Found&)> onFound;

  // Waits for the document, at most that long.
  bool waitLoaded(int milliseconds);
  bool loaded() const { return loaded_; }
  int pages() const { return pages_; }
  QByteArray bytes() const { return loaded_ ? bytes_ : QByteArray(); }

  // Replaces the picture that is wanted.
  void want(const Wanted& wanted);
  // Waits for the picture that is wanted, at most that long; it is delivered before this returns true.
  bool wait(int milliseconds);
  // A small picture, as wide as that; of many that are wanted the last one is drawn first, the oldest are
  // forgotten.
  void wantSmall(int page, int width);
  // Replaces the search that is running.
  void search(const Query& query);
  void stopSearch();

 private:
  struct Search {
    Query query;
    int done = 0;
    int generation = 0;
  };
  void work();
  void load();
  void draw(const Wanted& wanted);
  void drawSmall(int page, int width);
  void searchOn(Search search);
  std::vector<Hit> hitsOn(int page, const Query& query) const;
  bool mayContain(int page, const QString& text) const;
  int searchedPages(const Query& query) const;
  void deliver();
  void post(std::function<void()> call);
  bool outdated(const Wanted& wanted);

  const Texts texts_;
  std::unique_ptr<QFile> file_;
  std::unique_ptr<Poppler::Document> document_;  // the thread's own
  QByteArray read_;                              // the thread's, until it is loaded
  // The window's.
  bool loaded_ = false;
  int pages_ = 0;
  QByteArray bytes_;
  int generation_ = 0;  // of the search
  // Shared.
  std::mutex lock_;
  std::condition_variable tasks_;
  std::condition_variable done_;
  bool stopped_ = false;
  bool read_all_ = false;
  int count_ = 0;
  std::optional<Wanted> wanted_;
  std::deque<std::pair<int, int>> small_;
  std::optional<Search> search_;
  std::optional<Picture> drawn_;
  std::thread thread_;  // last: it uses all the others
};

}  // namespace cu::desktop
