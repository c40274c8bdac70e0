#include "speech/qt_voice.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QList>
#include <QMetaObject>
#include <QSemaphore>
#include <QStringList>
#include <QTextToSpeech>
#include <QThread>
#include <QTimer>
#include <QVoice>
#include <algorithm>
#include <atomic>
#include <cmath>
#include <deque>
#include <iostream>
#include <mutex>
#include <optional>

#include "speech/budget.h"
#include "speech/punctuation.h"
#include "speech/text_voice.h"

namespace quillmere {

namespace {

constexpr int kErrorGraceMs = 500;      // an engine in error may still return to Ready
constexpr int kStopLimitMs = 3000;      // for the engine's thread to end
constexpr int kTimeoutsBeforeText = 2;  // synchronous waits in a row that ran out
constexpr int kFailuresBeforeText = 3;  // texts in a row that the engine did not say

}  // namespace

// Everything that runs on the engine's thread. The QTextToSpeech object is built there and only
// touched there; the GUI thread posts work to `context` and waits on per-request semaphores, so a
// late release after a timed-out wait can never satisfy a later wait.
struct QtVoice::Engine : QThread {
  struct Request {
    QString text;
    std::shared_ptr<QSemaphore> done;  // empty for an asynchronous text
    long long budgetMs = 0;
  };

  explicit Engine(QString name) : name(std::move(name)) {}

  // Set by the engine's thread before `built` is released, read by the GUI thread after.
  QString name;
  QSemaphore built;
  bool ok = false;
  std::string error;
  std::vector<std::string> voiceNames;
  std::string description;
  int rate = 0;

  std::atomic<bool> abandoned{false};
  std::atomic<long long> pendingBudgetMs{0};
  std::atomic<int> failuresInRow{0};

  // Owned by the engine's thread.
  QObject* context = nullptr;
  QTextToSpeech* tts = nullptr;
  QList<QVoice> voices;
  std::deque<Request> queue;
  std::optional<Request> current;
  quint64 currentId = 0;
  bool sawSpeaking = false;
  QTimer* watchdog = nullptr;
  bool published = false;

  void run() override {
    QObject ctx;
    context = &ctx;
    tts = name.isEmpty() ? new QTextToSpeech(&ctx) : new QTextToSpeech(name, &ctx);
    QTimer dog;
    dog.setSingleShot(true);
    watchdog = &dog;
    QObject::connect(&dog, &QTimer::timeout, &ctx, [this] {
      if (!current) return;
      tts->stop();
      Finish(true);
    });
    QObject::connect(
        tts, &QTextToSpeech::stateChanged, &ctx, [this](QTextToSpeech::State s) { OnState(s); },
        Qt::QueuedConnection);

    // Under the C locale (a bare terminal, a service) speechd picks whatever voice has no known
    // language, and the words come out in a stranger's phonetics: ask for English instead.
    const QLocale::Language language = QLocale::system().language();
    if (tts->state() == QTextToSpeech::Ready &&
        (language == QLocale::C || language == QLocale::AnyLanguage)) {
      tts->setLocale(QLocale(QLocale::English, QLocale::UnitedStates));
      for (const QVoice& v : tts->availableVoices()) {
        if (v.name() == "English (America)") tts->setVoice(v);
      }
    }
    if (tts->state() == QTextToSpeech::Ready || tts->state() == QTextToSpeech::Error) Publish();
    if (!abandoned) exec();
    if (!published) Publish();
    queue.clear();
    if (current) Finish(true);
    watchdog = nullptr;
    tts->stop();
    delete tts;
    tts = nullptr;
    context = nullptr;
  }

  void Publish() {
    if (published) return;
    published = true;
    ok = tts->state() == QTextToSpeech::Ready;
    if (!ok) {
      std::string why = tts->errorString().toStdString();
      if (!why.empty() && why.back() != '.') why += '.';
      error = "The speech engine " + tts->engine().toStdString() + " is not working" +
              (why.empty() ? std::string(".") : ": " + why);
    }
    voices = tts->availableVoices();
    for (const QVoice& v : voices) voiceNames.push_back(v.name().toStdString());
    description = tts->voice().name().toStdString();
    rate = static_cast<int>(std::lround(tts->rate() * 10.0));
    built.release();
  }

  void OnState(QTextToSpeech::State s) {
    if (!published && (s == QTextToSpeech::Ready || s == QTextToSpeech::Error)) Publish();
    if (!current) return;
    if (s == QTextToSpeech::Speaking) {
      sawSpeaking = true;
    } else if (s == QTextToSpeech::Ready && sawSpeaking) {
      Finish(false);
    } else if (s == QTextToSpeech::Error) {
      GiveUpUnlessItSpeaks();
    }
  }

  void GiveUpUnlessItSpeaks() {
    const quint64 id = currentId;
    QTimer::singleShot(kErrorGraceMs, context, [this, id] {
      if (current && currentId == id && !sawSpeaking) Finish(true);
    });
  }

  void Enqueue(Request r) {
    queue.push_back(std::move(r));
    if (!current) Next();
  }

  void Next() {
    while (!current && !queue.empty()) {
      Request r = std::move(queue.front());
      queue.pop_front();
      if (r.text.trimmed().isEmpty()) {  // the engine gives no sound and no state change
        Done(r, false);
        continue;
      }
      current = std::move(r);
      ++currentId;
      sawSpeaking = false;
      watchdog->start(static_cast<int>(current->budgetMs));
      tts->say(current->text);
      if (tts->state() == QTextToSpeech::Error) GiveUpUnlessItSpeaks();
    }
  }

  void Finish(bool failed) {
    watchdog->stop();
    Request r = std::move(*current);
    current.reset();
    Done(r, failed);
    Next();
  }

  // Exactly once per request.
  void Done(Request& r, bool failed) {
    pendingBudgetMs -= r.budgetMs;
    failuresInRow = failed ? failuresInRow + 1 : 0;
    if (r.done) r.done->release();
  }

  template <typename F>
  void Post(F&& f) {
    if (context) QMetaObject::invokeMethod(context, std::forward<F>(f), Qt::QueuedConnection);
  }
};

QtVoice::QtVoice(const std::string& engine, std::ostream& fallbackOut)
    : engine_(std::make_shared<Engine>(QString::fromStdString(engine))), fallbackOut_(fallbackOut) {
  if (!engine.empty() && !QTextToSpeech::availableEngines().contains(engine_->name)) {
    error_ = "The speech engine " + engine + " is not installed.";
    engine_.reset();
    return;
  }
  engine_->start();
}

namespace {

// Engines whose thread has not ended yet. A running QThread must not be destroyed: one still
// being built ends by itself once its engine exists (it sees `abandoned`), one that hangs inside
// a call of its own may never end. Each is kept here, and freed by a later voice's end once its
// thread has ended.
std::vector<std::shared_ptr<QtVoice::Engine>>& EndingEngines() {
  static auto* const engines = new std::vector<std::shared_ptr<QtVoice::Engine>>;
  return *engines;
}

}  // namespace

QtVoice::~QtVoice() {
  auto& ending = EndingEngines();
  std::erase_if(ending, [](const auto& e) { return e->isFinished(); });
  if (!engine_ || !engine_->isRunning()) return;
  engine_->abandoned = true;
  // An engine still being built cannot be told to stop: no waiting for it here.
  const bool built = ready_ || engine_->built.tryAcquire(1, 0);
  engine_->quit();
  if (!built || !engine_->wait(QDeadlineTimer(kStopLimitMs))) ending.push_back(std::move(engine_));
}

bool QtVoice::WaitReady(int limitMs) {
  if (ready_) return true;
  if (!engine_) return false;
  if (!engine_->built.tryAcquire(1, limitMs)) {
    error_ =
        "The speech engine did not start within " + std::to_string(limitMs / 1000) + " seconds.";
    return false;
  }
  engine_->built.release();  // later calls see it built too
  if (!engine_->ok) {
    error_ = engine_->error;
    return false;
  }
  voiceNames_ = engine_->voiceNames;
  description_ = engine_->description;
  rate_ = engine_->rate;
  ready_ = true;
  return true;
}

void QtVoice::FallBack(const std::string& why) {
  std::cerr << why << " Speech goes to standard output as text from now on." << std::endl;
  textVoice_ = std::make_unique<TextVoice>(fallbackOut_);
  textVoice_->SetRate(rate_);
}

void QtVoice::Speak(const std::string& text, int flags) {
  if (!textVoice_ && !ready_) FallBack("The speech engine is not ready.");
  if (!textVoice_ && engine_->failuresInRow >= kFailuresBeforeText) {
    FallBack("The speech engine failed to say " + std::to_string(kFailuresBeforeText) +
             " texts in a row.");
  }
  if (textVoice_) {
    textVoice_->Speak(text, flags);
    return;
  }

  Engine::Request r;
  r.text = QString::fromStdString(flags == SVSFNLPSpeakPunc ? PronouncePunctuation(text) : text);
  r.budgetMs = SpeechBudgetMs(r.text.toStdString(), rate_);
  const bool sync = flags != SVSFlagsAsync;
  if (sync) r.done = std::make_shared<QSemaphore>(0);
  // The wait covers whatever is queued ahead of this text as well as the text itself.
  const long long limitMs = (engine_->pendingBudgetMs += r.budgetMs) + 1000;
  auto done = r.done;
  Engine* e = engine_.get();
  engine_->Post([e, r = std::move(r)]() mutable { e->Enqueue(std::move(r)); });
  if (!sync) return;

  if (done->tryAcquire(1, static_cast<int>(std::min<long long>(limitMs, 1LL << 30)))) {
    timeouts_ = 0;
    return;
  }
  if (++timeouts_ >= kTimeoutsBeforeText) {
    FallBack("The speech engine did not finish speaking in time, twice in a row.");
  }
}

void QtVoice::SetVoice(int index) {
  if (textVoice_ || !ready_ || index < 0 || index >= static_cast<int>(voiceNames_.size())) return;
  description_ = voiceNames_[index];
  Engine* e = engine_.get();
  engine_->Post([e, index] {
    if (index < e->voices.size()) e->tts->setVoice(e->voices[index]);
  });
}

void QtVoice::SetRate(int rate) {
  rate_ = std::clamp(rate, -10, 10);
  if (textVoice_) textVoice_->SetRate(rate_);
  if (textVoice_ || !ready_) return;
  Engine* e = engine_.get();
  const double r = rate_ / 10.0;
  engine_->Post([e, r] { e->tts->setRate(r); });
}

bool QtEngineInstalled(const std::string& engine) {
  return QTextToSpeech::availableEngines().contains(QString::fromStdString(engine));
}

std::string DefaultSpeechEngine() {
#if defined(Q_OS_WIN)
  return "sapi";
#elif defined(Q_OS_MACOS)
  return QTextToSpeech::availableEngines().contains("darwin") ? "darwin" : "macos";
#else
  return "speechd";
#endif
}

}  // namespace quillmere
