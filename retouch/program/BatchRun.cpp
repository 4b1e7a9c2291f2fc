#include "program/BatchRun.h"

#include "document/Message.h"
#include "document/PhotoOrigin.h"
#include "program/Batch.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <QCoreApplication>
#include <QEventLoop>
#include <QImageReader>
#include <QProcess>

namespace
{

namespace fs = std::filesystem;

/// What a program needs for a photo at most: the photo, a copy that is worked on, what the history keeps of both, and
/// the file; and something for itself.
std::int64_t BytesFor(const std::string& strPhoto)
{
    constexpr std::int64_t COPIES = 5;
    constexpr std::int64_t BYTES_OF_A_PIXEL = 4;
    constexpr std::int64_t PROGRAM = std::int64_t{100} << 20;
    const QSize sz = QImageReader(QString::fromStdString(strPhoto)).size();
    return PROGRAM + COPIES * BYTES_OF_A_PIXEL * std::max(0, sz.width()) * std::max(0, sz.height());
}

/// What the machine can give away; a lot where it does not say.
std::int64_t BytesAvailable()
{
    std::ifstream file("/proc/meminfo");
    std::string strWord;
    std::int64_t nKilobytes = 0;
    while (file >> strWord)
    {
        if (strWord == "MemAvailable:" && file >> nKilobytes)
            return nKilobytes << 10;
    }
    return std::int64_t{1} << 40;
}

/// The photos of a batch, and the programs that work on them.
class CBatch
{
public:
    CBatch(std::string strCommands, const std::vector<std::string>& vPhotos)
        : m_strCommands(std::move(strCommands)), m_vPhotos(vPhotos), m_vResults(vPhotos.size())
    {
    }

    int Run(int nJobs)
    {
        while (m_nEnded < m_vPhotos.size())
        {
            while (m_nStarted < m_vPhotos.size() && m_vRunning.size() < static_cast<std::size_t>(nJobs) && MayStart())
                Start();
            m_loop.exec();
            Print();
        }
        return Conclude();
    }

private:
    struct Result
    {
        bool bEnded = false;
        bool bFailed = false;
        std::string strSaid;
    };

    /// One always runs, the others when there is room for them.
    bool MayStart() const
    {
        return m_vRunning.empty() || BytesFor(m_vPhotos[m_nStarted]) + m_nReserved < BytesAvailable();
    }

    void Start()
    {
        const std::size_t iPhoto = m_nStarted++;
        auto& pProcess = m_vRunning[iPhoto] = std::make_unique<QProcess>();
        // It has yet to take what it needs.
        m_nReserved += BytesFor(m_vPhotos[iPhoto]);
        pProcess->setProcessChannelMode(QProcess::MergedChannels);
        const auto end = [this, iPhoto] { End(iPhoto); };
        QObject::connect(pProcess.get(), &QProcess::finished, &m_loop, end);
        QObject::connect(pProcess.get(), &QProcess::errorOccurred, &m_loop,
                         [=](QProcess::ProcessError error)
                         {
                             if (error == QProcess::FailedToStart)
                                 end();
                         });
        pProcess->start(QCoreApplication::applicationFilePath(),
                        {"--do", QString::fromStdString(m_strCommands), QString::fromStdString(m_vPhotos[iPhoto])});
    }

    void End(std::size_t iPhoto)
    {
        QProcess& process = *m_vRunning[iPhoto];
        Result& result = m_vResults[iPhoto];
        result.bEnded = true;
        result.bFailed = process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0 ||
                         process.error() == QProcess::FailedToStart;
        result.strSaid = process.readAll().toStdString();
        m_nReserved -= BytesFor(m_vPhotos[iPhoto]);
        m_vRunning[iPhoto].release()->deleteLater(); // It is in the middle of telling.
        m_vRunning.erase(iPhoto);
        ++m_nEnded;
        m_loop.quit();
    }

    void Print()
    {
        for (; m_nPrinted < m_vPhotos.size() && m_vResults[m_nPrinted].bEnded; ++m_nPrinted)
        {
            if (!m_vResults[m_nPrinted].strSaid.empty())
                std::cerr << m_vPhotos[m_nPrinted] << ":\n" << m_vResults[m_nPrinted].strSaid;
        }
    }

    int Conclude() const
    {
        const auto nFailed = std::ranges::count_if(m_vResults, &Result::bFailed);
        if (nFailed == 0)
            return 0;
        std::cerr << Message(QT_TRANSLATE_NOOP("Program", "%1 of %2 photos failed:"),
                             {std::to_string(nFailed), std::to_string(m_vPhotos.size())})
                  << "\n";
        for (std::size_t i = 0; i < m_vPhotos.size(); ++i)
        {
            if (m_vResults[i].bFailed)
                std::cerr << "  " << m_vPhotos[i] << "\n";
        }
        return 1;
    }

    std::string m_strCommands;
    const std::vector<std::string>& m_vPhotos;
    std::vector<Result> m_vResults;
    std::map<std::size_t, std::unique_ptr<QProcess>> m_vRunning; ///< By the number of the photo.
    std::int64_t m_nReserved = 0;                                ///< For those that run.
    std::size_t m_nStarted = 0;
    std::size_t m_nEnded = 0;
    std::size_t m_nPrinted = 0;
    QEventLoop m_loop;
};

/// Whether two photos would be saved to the same file, whichever came last; says which.
bool Collide(const std::string& strCommands, const std::vector<std::string>& vPhotos)
{
    std::map<std::string, std::string> vSavers;
    for (const std::string& strPhoto : vPhotos)
    {
        for (const std::string& strFile : FilesSavedTo(strCommands, strPhoto))
        {
            const auto [it, bNew] = vSavers.try_emplace(fs::weakly_canonical(strFile).string(), strPhoto);
            if (bNew || it->second == strPhoto)
                continue;
            std::cerr << "retouch: "
                      << Message(QT_TRANSLATE_NOOP("Program", "%1 and %2 would both be saved to %3"),
                                 {it->second, strPhoto, strFile})
                      << "\n";
            return true;
        }
    }
    return false;
}

} // namespace

std::vector<std::string> PhotosOf(const std::vector<std::string>& vPaths, std::string& strError)
{
    std::vector<std::string> vPhotos;
    for (const std::string& strPath : vPaths)
    {
        std::error_code error;
        if (!fs::is_directory(strPath, error))
        {
            vPhotos.push_back(strPath);
            continue;
        }
        std::vector<std::string> vInside;
        for (const auto& entry : fs::directory_iterator(strPath, error))
        {
            const std::string strName = entry.path().filename().string();
            if (entry.is_regular_file(error) && !strName.starts_with('.') && FormatOfName(strName))
                vInside.push_back(entry.path().string());
        }
        if (vInside.empty())
            strError =
                strPath + ": " +
                (error ? error.message() : Message(QT_TRANSLATE_NOOP("Program", "there are no photos in the folder")));
        if (!strError.empty())
            return {};
        std::ranges::sort(vInside);
        vPhotos.insert(vPhotos.end(), vInside.begin(), vInside.end());
    }
    return vPhotos;
}

int RunBatch(const std::string& strCommands, const std::vector<std::string>& vPhotos, int nJobs)
{
    std::string strError;
    if (!AreCommands(strCommands, strError))
    {
        std::cerr << "retouch: " << strError << "\n";
        return 1;
    }
    return Collide(strCommands, vPhotos) ? 1 : CBatch(strCommands, vPhotos).Run(nJobs);
}
