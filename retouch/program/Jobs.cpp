#include "program/Jobs.h"

#include "document/Message.h"
#include "document/Tile.h"

#include <new>
#include <system_error>
#include <utility>

namespace
{

std::string NoMemory() { return Message(QT_TRANSLATE_NOOP("Program", "there is not enough memory for this")); }

} // namespace

CJobs::~CJobs()
{
    m_vWaiting.clear();
    Cancel();
    if (m_thread.joinable())
        m_thread.join();
}

void CJobs::Running::Work()
try
{
    bDone = job.work(progress, strError) && !progress.IsCancelled();
    progress.Finish();
}
catch (const std::bad_alloc&)
{
    strError = NoMemory();
}
catch (const CTile::Unreadable& failure)
{
    strError = Message(failure.what());
}

bool CJobs::Running::End()
try
{
    if (bDone)
        job.commit();
    else if (job.drop)
        job.drop();
    return bDone || strError.empty();
}
catch (const std::bad_alloc&)
{
    strError = NoMemory();
    return false;
}

bool CJobs::Run(Job job, std::string& strError)
{
    auto pRunning = std::make_unique<Running>();
    pRunning->job = std::move(job);
    if (!m_bBackground)
    {
        pRunning->Work();
        const bool bDone = pRunning->End();
        strError = pRunning->strError;
        return bDone;
    }
    m_pRunning = std::move(pRunning);
    const auto work = [this, &running = *m_pRunning]
    {
        running.Work();
        QMetaObject::invokeMethod(
            &m_context, [this] { OnWorked(); }, Qt::QueuedConnection);
    };
    try
    {
        m_thread = std::thread(work);
    }
    catch (const std::system_error&)
    {
        work(); // Without a thread it is done here: later than wanted, but done.
    }
    Tell({});
    return true;
}

void CJobs::Cancel()
{
    if (m_pRunning)
        m_pRunning->progress.Cancel();
}

void CJobs::OnWorked()
{
    if (m_thread.joinable())
        m_thread.join();
    const std::unique_ptr<Running> pEnded = std::move(m_pRunning);
    // A cancel that came after the work was done still counts.
    pEnded->bDone = pEnded->bDone && !pEnded->progress.IsCancelled();
    pEnded->End();
    Tell(pEnded->strError);
    PostNextWaiting();
}

void CJobs::Later(std::function<void()> call)
{
    m_vWaiting.push_back(std::move(call));
    PostNextWaiting();
}

void CJobs::PostNextWaiting()
{
    // One for each turn of the event loop: what the one before has caused, in the view's own queue, comes first.
    if (m_vWaiting.empty() || IsRunning() || std::exchange(m_bPosted, true))
        return;
    QMetaObject::invokeMethod(
        &m_context, [this] { DoNextWaiting(); }, Qt::QueuedConnection);
}

void CJobs::DoNextWaiting()
{
    m_bPosted = false;
    if (!m_vWaiting.empty() && !IsRunning() && (!m_IsGateOpen || m_IsGateOpen()))
    {
        const auto call = std::move(m_vWaiting.front());
        m_vWaiting.pop_front();
        m_bCalling = true;
        call();
        m_bCalling = false;
    }
    PostNextWaiting();
}

void CJobs::Tell(const std::string& strError)
{
    if (m_Listener)
        m_Listener(strError);
}
