// SPDX-License-Identifier: MIT
#pragma once

#include "docs/example-host/records.h"
#include "docs/example-host/store.h"

#include <QObject>

#include <functional>

/// One request that the plug-in sent.
struct MemoryRequest
{
    QString operation;  ///< Name of the interface's operation, such as "renameTag".
    QVector<qint64> groups;
    QVector<qint64> tags;
    QStringList names;               ///< New ones.
    std::function<void()> carryOut;  ///< Changes the library, with the data signals, without an answer.
    qint64 id = 0;

    /// In one line for comparisons, such as `addTagsToGroups groups 1 tags 5,6`.
    [[nodiscard]] QString text() const;
};

/// The example's host for tests and benchmarks: the store's operations change the library as another part of the host
/// would; requests of the plug-in are recorded and answered as set. The library object may outlive the host; its
/// requests are then neither recorded nor answered.
class MemoryHost : public QObject, public example::TagStore
{
    Q_OBJECT

public:
    static constexpr qint64 AllTags = taggroupid::allTags;
    static constexpr qint64 Uncategorized = taggroupid::fixed;
    static constexpr qint64 Favorites = taggroupid::favorites;

    enum class Answers
    {
        Later,     ///< Carried out and answered from the event loop, first the answer, then the data signals.
        AtOnce,    ///< The same from inside the request, before the plug-in knows the request's id.
        OnDemand,  ///< Only by MemoryRequest::carryOut() and answer(), or never.
    };

    /// With these tags, ids counted from 1.
    explicit MemoryHost(const QStringList& tagNames = {});
    ~MemoryHost() override;

    QSharedPointer<ILibraryDataProvider> library() const { return m_library; }
    /// For tests that take parts of the library away.
    example::Library* memoryLibrary() const { return m_library.data(); }
    example::Palette* palette() { return &m_palette; }
    void setFavorite(qint64 tagId, bool favorite);

    void setAnswers(Answers answers) { m_answers = answers; }
    /// Later requests change nothing and get an answer with this status and message; status 0 ends that.
    void refuseWith(int status, const QString& message);
    const QVector<MemoryRequest>& requests() const { return m_requests; }
    QStringList requestTexts() const;
    void clearRequests() { m_requests.clear(); }
    /// Sends an answer from the action object of \a request; null is an answer, too. May be sent repeatedly.
    void answer(const MemoryRequest& request, const QSharedPointer<const IResponseInfo>& response);
    /// Sends an answer with any id from both action objects.
    void answerForeign(qint64 requestId, const QSharedPointer<const IResponseInfo>& response);
    static QSharedPointer<example::Response> response(int status = 0, const QString& message = {});

    /// For the action objects: records a request and answers as set. Returns its id.
    qint64 take(MemoryRequest request);

protected:
    /// A request was recorded, and answered if that is to be done at once.
    virtual void requestTaken(const QString& /*operation*/) {}

private:
    void process(const MemoryRequest& request);
    QString refusal(const MemoryRequest& request) const;

    QSharedPointer<example::Library> m_library = QSharedPointer<example::Library>::create();
    example::Palette m_palette;
    QVector<MemoryRequest> m_requests;
    Answers m_answers = Answers::Later;
    QSharedPointer<example::Response> m_refusal;
    qint64 m_lastRequestId = 0;
};
