#include "Corvale/platform/QtPlatform.h"

#include <QApplication>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <algorithm>
#include <thread>
#include <utility>

#include "Corvale/platform/LocalFile.h"

namespace corvale {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(QtPlatform)
};

// A comparison, a filtering and a report at once leave room for the destruction of what they replace.
constexpr std::size_t fewestThreads = 4;

QString patterns(const QStringList& extensions) {
    QStringList patterns;
    for (const QString& extension : extensions) {
        patterns.append(QStringLiteral("*.") + extension);
    }
    return patterns.join(u' ');
}

// Qt adds an extension only to names without a dot, and people write "report v1.2".
QString withExtension(const QString& name, const QString& extension) {
    const bool lacksIt = !name.isEmpty() && !name.endsWith(u'.' + extension, Qt::CaseInsensitive);
    return lacksIt ? name + u'.' + extension : name;
}

// Adds it before the dialog asks whether a file of that name may be replaced.
class SaveDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    void accept() override {
        const QString name = selectedFiles().value(0);
        if (const QString whole = withExtension(name, defaultSuffix()); whole != name && !QFileInfo(name).isDir()) {
            selectFile(whole);
        }
        QFileDialog::accept();
    }
};

// Calls whenAnswered(whether it may be) unless `context` is gone by then.
void askToReplace(const QString& path, QWidget* parent, const QObject& context,
                  std::function<void(bool)> whenAnswered) {
    auto* const question =
        new QMessageBox(QMessageBox::Question,
                        Texts::tr("Export Report"),
                        Texts::tr("“%1” exists already. Do you want to replace it?").arg(QFileInfo(path).fileName()),
                        QMessageBox::Cancel,
                        parent);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setTextFormat(Qt::PlainText);
    const QPushButton* const replace = question->addButton(Texts::tr("Replace"), QMessageBox::AcceptRole);
    question->setDefaultButton(QMessageBox::Cancel);
    QObject::connect(question, &QDialog::finished, &context, [=, whenAnswered = std::move(whenAnswered)] {
        whenAnswered(question->clickedButton() == replace);
    });
    question->open();
}

// Deletes itself when it closes.
template <typename Dialog>
QFileDialog* newDialog(const QString& title) {
    auto* const dialog = new Dialog(QApplication::activeWindow(), title);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    return dialog;
}

// ISO 639, of a name such as "es-MX".
std::string languageOf(const QString& localeName) {
    const QString language = localeName.section(u'-', 0, 0).section(u'_', 0, 0);
    return language == u"C" ? "en" : language.toStdString();
}

}  // namespace

QtPlatform::QtPlatform(std::unique_ptr<QSettings> settings)
    : m_settings(std::move(settings)),
      m_workers(std::max<std::size_t>(fewestThreads, std::thread::hardware_concurrency())) {}

void QtPlatform::showOpenPanel(const OpenPanel& panel, std::function<void(const QList<QUrl>&)> whenChosen) {
    QFileDialog* const dialog = newDialog<QFileDialog>(panel.message);
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(panel.allowsSeveral ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog->setLabelText(QFileDialog::Accept, Texts::tr("Open"));
    dialog->setNameFilters(
        {Texts::tr("Spreadsheets (%1)").arg(patterns(panel.extensions)), Texts::tr("All files (*)")});
    show(dialog, std::move(whenChosen));
}

void QtPlatform::showSavePanel(const SavePanel& panel, std::function<void(const QUrl&)> whenChosen) {
    QFileDialog* const dialog = newDialog<SaveDialog>(Texts::tr("Export Report"));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setDefaultSuffix(panel.extension);
    dialog->setNameFilters({QStringLiteral("*.") + panel.extension});
    dialog->selectFile(panel.defaultName);
    show(dialog,
         [this,
          extension = panel.extension,
          parent = QPointer<QWidget>(dialog->parentWidget()),
          whenChosen = std::move(whenChosen)](const QList<QUrl>& urls) {
             const QString chosen = urls.value(0).toLocalFile();
             const QString path = withExtension(chosen, extension);
             const QUrl url = path.isEmpty() ? QUrl() : QUrl::fromLocalFile(path);
             // The desktop's own dialog takes no other name from us, and asked about the one that was typed.
             if (path == chosen || !QFileInfo::exists(path)) {
                 whenChosen(url);
             } else {
                 askToReplace(path, parent, m_main, [url, whenChosen](bool mayReplace) {
                     whenChosen(mayReplace ? url : QUrl());
                 });
             }
         });
}

void QtPlatform::show(QFileDialog* dialog, std::function<void(const QList<QUrl>&)> whenChosen) {
    QObject::connect(dialog, &QFileDialog::finished, &m_main, [dialog, whenChosen = std::move(whenChosen)](int result) {
        whenChosen(result == QDialog::Accepted ? dialog->selectedUrls() : QList<QUrl>());
    });
    dialog->open();
}

Bytes QtPlatform::readFile(const QUrl& url) { return LocalFile::read(url); }

void QtPlatform::writeFile(const QUrl& url, std::string_view bytes) { LocalFile::write(url, bytes); }

std::optional<std::string> QtPlatform::storedData(const std::string& key) {
    const QVariant value = m_settings->value(QString::fromStdString(key));
    return value.canConvert<QByteArray>() ? std::optional(value.toByteArray().toStdString()) : std::nullopt;
}

void QtPlatform::storeData(const std::string& key, std::string_view data) {
    m_settings->setValue(QString::fromStdString(key), QByteArray(data.data(), static_cast<qsizetype>(data.size())));
    // At once, so that a crash later takes nothing along.
    m_settings->sync();
}

// The language of texts, which need not be that of numbers.
std::string QtPlatform::language() const { return languageOf(QLocale::system().uiLanguages().value(0)); }

NumberStyle QtPlatform::numberStyle() const {
    return QLocale::system().decimalPoint() == u"," ? NumberStyle::commaDecimal : NumberStyle::dotDecimal;
}

void QtPlatform::runInBackground(std::function<void()> work) {
    // A window that stands still while it works is better than one that never does.
    if (m_workers.count() > 0) {
        m_workers.start(std::move(work));
    } else {
        runOnMain(std::move(work));
    }
}

void QtPlatform::runOnMain(std::function<void()> work) {
    QMetaObject::invokeMethod(&m_main, std::move(work), Qt::QueuedConnection);
}

}  // namespace corvale
