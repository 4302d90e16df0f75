#ifdef SCINTRA_WIDGETS
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

// What the package tells of the programs: packaging/test takes minutes, this is held at every change.
namespace {

const QString packaging = QStringLiteral(SCINTRA_SOURCE_DIR "/packaging/");

QString contents(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

QString programPath(const QString& program) {
    return QStringLiteral(SCINTRA_BINARY_DIR "/bin/") + program;
}

/// Without a display, as a technician may ask.
QString said(const QString& program, const QString& option) {
    QProcess process;
    process.setProcessEnvironment([] {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            environment.remove(QLatin1String(name));
        return environment;
    }());
    process.start(programPath(program), {option});
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << program.toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

QSet<QString> found(const QString& pattern, const QString& text) {
    QSet<QString> words;
    for (auto match = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
         match.hasNext();)
        words += match.next().captured(1);
    return words;
}

std::string list(const QSet<QString>& words) {
    return QStringList(words.values()).join(u' ').toStdString();
}

const QString option = QStringLiteral("(?<![\\w-])(--[a-z]+)");

class Manual : public testing::TestWithParam<const char*> {
  protected:
    const QString m_program = QLatin1String(GetParam());
    const QString m_page = QString(contents(packaging + "man/" + m_program + ".1"))
                               .remove(QRegularExpression("\\\\f[BIR]"))
                               .remove(u'\\');
};

TEST_P(Manual, NamesEachOptionAndNoOther) {
    const QSet<QString> told = found(option, said(m_program, "--help"));
    const QSet<QString> named = found(option, m_page);
    EXPECT_TRUE(told.contains("--help") && told.contains("--version")) << list(told);
    EXPECT_EQ(list(told - named), "") << "not in the manual page";
    EXPECT_EQ(list(named - told), "") << "not in --help";
}

TEST_P(Manual, IsOfThisVersion) {
    const QString version = said(m_program, "--version");
    ASSERT_TRUE(version.startsWith(m_program + u' ')) << version.toStdString();
    EXPECT_TRUE(m_page.contains("\"Visual Scintra " + version.section(u' ', 1).trimmed() + '"'));
}

INSTANTIATE_TEST_SUITE_P(Of, Manual,
                         testing::Values("visual-scintra", "scintra-server", "scintra-report",
                                         "scintra-tour"),
                         [](const auto& of) { return QString(of.param).remove(u'-').toStdString(); });

TEST(Packaging, TheManualOfTheServerHasEachCommand) {
    const QSet<QString> commands = found("^  ([a-z]+) ", said("scintra-server", "--help"));
    const QSet<QString> named = found("^\\.BR ([a-z]+) ", contents(packaging + "man/scintra-server.1"));
    EXPECT_GT(commands.size(), 10);
    EXPECT_EQ(list(commands - named), "");
}

TEST(Packaging, EachManualIsOfAProgramThatIsInstalled) {
    const QString installed = contents(packaging + "CMakeLists.txt");
    for (const QString& page : QDir(packaging + "man").entryList(QDir::Files))
        EXPECT_TRUE(found("install\\(TARGETS ([^)]*) DESTINATION \\$\\{CMAKE_INSTALL_BINDIR\\}", installed)
                        .values()
                        .join(u' ')
                        .split(u' ')
                        .contains(page.chopped(2)))
            << page.toStdString();
}

TEST(Packaging, TheDesktopFileStartsTheProgramUnderItsIcon) {
    const QString desktop = contents(packaging + "visual-scintra.desktop");
    EXPECT_TRUE(desktop.contains("\nExec=visual-scintra\n"));
    EXPECT_TRUE(desktop.contains("\nIcon=visual-scintra\n"));
    EXPECT_TRUE(contents(packaging + "CMakeLists.txt").contains("scintra.svg RENAME ${own}.svg"));
    EXPECT_TRUE(contents(QStringLiteral(SCINTRA_SOURCE_DIR "/app/main.cpp"))
                    .contains("setDesktopFileName(\"visual-scintra\")"))
        << "a desk finds a window's icon by the name of the desktop file";
}

TEST(Packaging, TheCatalogueEntryIsWholeAndOfThisVersion) {
    const QString name = "com.example.kerova.visual_scintra";
    QXmlStreamReader xml(contents(packaging + name + ".metainfo.xml"));
    QString id, launches, version;
    QSet<QString> programs;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"id")
            id = xml.readElementText();
        else if (xml.name() == u"launchable")
            launches = xml.readElementText();
        else if (xml.name() == u"binary")
            programs += xml.readElementText();
        else if (xml.name() == u"release" && version.isEmpty())
            version = xml.attributes().value("version").toString();
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_EQ(id, name);
    EXPECT_TRUE(QFileInfo::exists(packaging + launches));
    for (const QString& program : programs)
        EXPECT_TRUE(QFileInfo(programPath(program)).isExecutable()) << program.toStdString();
    const QString built = said("visual-scintra", "--version").section(u' ', 1).trimmed();
    EXPECT_EQ(version, built);
    EXPECT_TRUE(contents(packaging + "changelog").startsWith("visual-scintra (" + built + ") "));
}

/// Each of them would make every start longer.
TEST(Packaging, WhatIsLoadedLateIsNotLinked) {
    QProcess ldd;
    ldd.start("ldd", {programPath("visual-scintra")});
    EXPECT_TRUE(ldd.waitForFinished());
    const QString linked = QString::fromUtf8(ldd.readAllStandardOutput());
    EXPECT_TRUE(linked.contains("libQt6Widgets"));
    for (const char* late : {"libQt6PrintSupport", "libsqlite3", "libodbc", "libxlsxwriter"})
        EXPECT_FALSE(linked.contains(QLatin1StringView(late))) << late;
}

/// As it is installed: nothing lies beside the program.
TEST(Packaging, AnInstalledToolFindsTheReports) {
    const QTemporaryDir folder;
    QDir root(folder.path());
    ASSERT_TRUE(root.mkpath("bin") && root.mkpath("share/visual-scintra"));
    ASSERT_TRUE(QFile::copy(programPath("scintra-report"), root.filePath("bin/scintra-report")));
    ASSERT_TRUE(QFile::link(QStringLiteral(SCINTRA_SOURCE_DIR "/Reports"),
                            root.filePath("share/visual-scintra/Reports")));
    const auto run = [&](const QString& program, const QStringList& words) {
        QProcess process;
        process.start(program, words);
        process.waitForFinished();
        return process.exitCode();
    };
    const QString hospital = root.filePath("hospital.scintra");
    ASSERT_EQ(run(programPath("scintra-server"), {"init", hospital}), 0);
    const QStringList rest{"NucExams.RPT", "--hospital", hospital, "--to", root.filePath("exams.csv")};
    EXPECT_EQ(run(root.filePath("bin/scintra-report"), rest), 0);
    ASSERT_TRUE(QFile::remove(root.filePath("share/visual-scintra/Reports")));
    EXPECT_EQ(run(root.filePath("bin/scintra-report"), rest), 3);
}

} // namespace
#endif
