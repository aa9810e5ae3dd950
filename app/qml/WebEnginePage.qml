import QtQuick
import QtWebEngine

// The engine's view. It shows no error page of its own: a load that fails leaves what was there.
WebEngineView {
    property var web: null

    url: web ? web.url : ""
    settings.errorPageEnabled: false
    onLoadingChanged: (info) => {
        if (!web)
            return;
        if (info.status === WebEngineView.LoadStartedStatus)
            web.started();
        else if (info.status === WebEngineView.LoadSucceededStatus)
            web.finished();
        else
            web.failed(info.errorString);
    }
    Connections {
        target: web
        function onLoadAsked() { url = web.url; }
    }
}
