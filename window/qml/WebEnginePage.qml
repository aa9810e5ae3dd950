import QtQuick
import QtWebEngine

// The engine's view of one page. Its content may come from anybody on the way, so it can use the web and nothing
// of the machine. It shows no error page of its own: a load that fails leaves the earlier content.
WebEngineView {
    id: view
    objectName: "web"
    property QtObject web: null

    // Never a binding: it would load again at every change of the model, its reports of a load included.
    function open() {
        if (web)
            url = web.url;
    }
    function isOfTheWeb(address) {
        return /^https?:/.test(address.toString());
    }
    onWebChanged: open()

    // Nothing of a visit is written to disk.
    profile: WebEngineProfile {
        offTheRecord: true
        onDownloadRequested: (download) => download.cancel()
    }
    settings {
        errorPageEnabled: false
        pluginsEnabled: false
        pdfViewerEnabled: false
        unknownUrlSchemePolicy: WebEngineSettings.DisallowUnknownUrlSchemes
        localContentCanAccessFileUrls: false
        localContentCanAccessRemoteUrls: false
        navigateOnDropEnabled: false
        javascriptCanOpenWindows: false
        javascriptCanAccessClipboard: false
        javascriptCanPaste: false
        allowWindowActivationFromJavaScript: false
        allowRunningInsecureContent: false
        allowGeolocationOnInsecureOrigins: false
        fullScreenSupportEnabled: false
        screenCaptureEnabled: false
        webRTCPublicInterfacesOnly: true
        dnsPrefetchEnabled: false
        hyperlinkAuditingEnabled: false
        playbackRequiresUserGesture: true
        autoLoadIconsForPage: false
        touchIconsEnabled: false
    }
    onNavigationRequested: (request) => {
        if (!isOfTheWeb(request.url))
            request.reject();
    }
    // Scripts of Settings' own in the page, out of reach of the page's scripts.
    Component.onCompleted: userScripts.collection = [{
        // A blank page is loaded without asking for the navigation.
        name: "web addresses only",
        injectionPoint: WebEngineScript.DocumentCreation,
        worldId: WebEngineScript.ApplicationWorld,
        sourceCode: "navigation.addEventListener('navigate', event => {"
                    + "    if (!/^https?:/.test(event.destination.url)) event.preventDefault();"
                    + "});"
    }, {
        // The engine keeps the keys that the page does not use.
        name: "Backspace returns",
        injectionPoint: WebEngineScript.DocumentCreation,
        worldId: WebEngineScript.ApplicationWorld,
        sourceCode: "addEventListener('keydown', event => {"
                    + "    const writes = event.target.closest('input, textarea, select') || event.target.isContentEditable;"
                    + "    if (event.key === 'Backspace' && !event.defaultPrevented && !writes) history.back();"
                    + "});"
    }]
    // There is one view: a link that asks for a window of its own is followed in it too.
    onNewWindowRequested: (request) => {
        if (request.userInitiated && isOfTheWeb(request.requestedUrl))
            url = request.requestedUrl;
    }

    // Whatever else a page asks a person or the machine for is refused without a question.
    onFileDialogRequested: (request) => {
        request.accepted = true;
        request.dialogReject();
    }
    onColorDialogRequested: (request) => {
        request.accepted = true;
        request.dialogReject();
    }
    onJavaScriptDialogRequested: (request) => {
        request.accepted = true;
        request.dialogReject();
    }
    onAuthenticationDialogRequested: (request) => {
        request.accepted = true;
        request.dialogReject();
    }
    onFeaturePermissionRequested: (origin, feature) => grantFeaturePermission(origin, feature, false)
    onFileSystemAccessRequested: (request) => request.reject()
    onQuotaRequested: (request) => request.reject()
    onRegisterProtocolHandlerRequested: (request) => request.reject()
    onFullScreenRequested: (request) => request.reject()
    onSelectClientCertificate: (selection) => selection.selectNone()
    onCertificateError: (error) => error.rejectCertificate()
    onContextMenuRequested: (request) => request.accepted = true
    onTooltipRequested: (request) => request.accepted = true
    onTouchSelectionMenuRequested: (request) => request.accepted = true
    // What the page's scripts print is none of ours.
    onJavaScriptConsoleMessage: {}

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
