#include "qt/page/DialogScheme.h"

#include <QBuffer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrlQuery>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

namespace tessa::qt {

namespace {

// Where fetching is not possible - while a page is being left, say - the engine's own function answers.
constexpr auto kDialogsScript = R"js((function () {
    const Request = window.XMLHttpRequest;
    let silenced = null;
    function quoted(text) {
        const cut = String(text).slice(0, 20000);
        try { return encodeURIComponent(cut); }
        catch (e) { return encodeURIComponent(cut.replace(/[\ud800-\udfff]/g, '\ufffd')); }
    }
    // A frame from elsewhere, or in a sandbox. The program looks for itself too; this spares it most of the questions.
    function isStranger() {
        try {
            for (let each = window; each !== each.parent; each = each.parent) {
                const frame = each.frameElement;
                if (!frame) return true;
                if (frame.hasAttribute('sandbox') && !frame.sandbox.contains('allow-modals')) return true;
            }
        } catch (e) { return true; }
        return false;
    }
    function replace(name, ask) {
        const native = window[name];
        if (typeof native !== 'function') return;
        const answer = function () {
            if (silenced) return ask(silenced);
            if (isStranger()) return ask({ accepted: false });
            let reply;
            const words = Array.from(arguments, each => String(each));
            try {
                const request = new Request();
                request.open('GET', 'tessaview-ask:' + name + '?page=%1&text=' + quoted(words.length ? words[0] : '') +
                                    '&suggestion=' + quoted(words.length > 1 ? words[1] : ''), false);
                request.send();
                reply = JSON.parse(request.responseText);
            } catch (e) {
                return native.apply(window, words);
            }
            if (reply.silenced) silenced = reply;
            return ask(reply);
        };
        Object.defineProperty(answer, 'name', { value: name });
        window[name] = answer;
    }
    replace('alert', reply => undefined);
    replace('confirm', reply => reply.accepted);
    replace('prompt', reply => reply.accepted ? reply.text : null);
})();)js";

} // namespace

void DialogScheme::RegisterScheme() {
    QWebEngineUrlScheme scheme(Scheme());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled |
                    QWebEngineUrlScheme::ContentSecurityPolicyIgnored);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QString DialogScheme::ScriptFor(const QString& token) { return QString::fromLatin1(kDialogsScript).arg(token); }

void DialogScheme::Reply(QWebEngineUrlRequestJob& job, const PageDialogAnswer& answer) {
    const QJsonObject reply{{QStringLiteral("accepted"), answer.accepted},
                            {QStringLiteral("text"), answer.text},
                            {QStringLiteral("silenced"), answer.silenced}};
    auto* body = new QBuffer(&job);
    body->setData(QJsonDocument(reply).toJson(QJsonDocument::Compact));
    job.reply(QByteArrayLiteral("application/json"), body);
}

void DialogScheme::requestStarted(QWebEngineUrlRequestJob* job) {
    const QString token = QUrlQuery(job->requestUrl()).queryItemValue(QStringLiteral("page"));
    const auto receiver = m_receivers.constFind(token);
    if (receiver == m_receivers.constEnd()) return job->fail(QWebEngineUrlRequestJob::RequestDenied);
    (*receiver)(*job);
}

} // namespace tessa::qt
