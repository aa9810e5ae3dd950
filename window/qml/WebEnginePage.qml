import QtQuick
import QtWebEngine

// The engine's view. It shows no error page of its own: a load that fails leaves what was there.
WebEngineView {
    objectName: "web"
    property QtObject web: null

    // Never a binding: it would load anew at every change of the model, its reports of a load included.
    function open() {
        if (web)
            url = web.url;
    }
    onWebChanged: open()
    settings.errorPageEnabled: false
    // There is one view: a link that asks for a window of its own is followed in it too.
    onNewWindowRequested: (request) => {
        if (request.userInitiated)
            url = request.requestedUrl;
    }
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
        function onLoadAsked() { open(); }
    }
}
