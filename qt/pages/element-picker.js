// Lets the user point at what is to be hidden: a frame follows the pointer, a click chooses, Escape gives up. Runs in the
// page that is shown, in a world of its own. The program puts a secret where its name stands between signs.
(function () {
    'use strict';
    if (window.tessaPicker) window.tessaPicker.end();
    const frame = document.createElement('div'), preview = new CSSStyleSheet();
    const set = (name, value) => frame.style.setProperty(name, value, 'important');
    for (const [name, value] of [['all', 'initial'], ['position', 'fixed'], ['pointer-events', 'none'], ['z-index', '2147483647'],
        ['box-sizing', 'border-box'], ['border', '2px solid #d7263d'], ['background', 'rgba(215, 38, 61, .25)'], ['display', 'none']])
        set(name, value);
    let under = null;

    function show(element) {
        under = element;
        const place = element ? element.getBoundingClientRect() : null;
        set('display', place ? 'block' : 'none');
        if (!place) return;
        set('left', place.left + 'px');
        set('top', place.top + 'px');
        set('width', place.width + 'px');
        set('height', place.height + 'px');
    }
    function count(selector) {
        try { return document.querySelectorAll(selector).length; } catch (e) { return 0; }
    }
    function step(element) {
        const id = element.getAttribute('id');
        // A name with digits in a row is made anew each time.
        const lasting = text => text && !/\d{3}/.test(text);
        if (lasting(id) && count('#' + CSS.escape(id)) === 1) return '#' + CSS.escape(id);
        const names = Array.from(element.classList).filter(lasting).slice(0, 3);
        return element.localName + names.map(each => '.' + CSS.escape(each)).join('');
    }
    function selectorOf(element) {
        let selector = step(element);
        for (let each = element; count(selector) > 1 && !selector.startsWith('#') && each.parentElement; each = each.parentElement) {
            if (each.parentElement === document.documentElement) break;
            const above = step(each.parentElement);
            const place = Array.from(each.parentElement.children).filter(other => other.localName === each.localName).indexOf(each) + 1;
            const nth = count(selector) > 1 && each === element && !element.classList.length ? ':nth-of-type(' + place + ')' : '';
            selector = above + ' > ' + selector.replace(/^([^ ]*)/, '$1' + nth);
            if (above.startsWith('#')) break;
        }
        return selector;
    }
    function tell(selector) {
        const request = new XMLHttpRequest();
        request.open('GET', 'tessaview-hide:picked?word=@word@&selector=' + encodeURIComponent(selector) + '&count=' + (selector ? count(selector) : 0));
        request.send();
    }
    function swallow(event) {
        event.preventDefault();
        event.stopImmediatePropagation();
    }
    function onMove(event) { show(event.target instanceof Element && event.target !== frame ? event.target : null); }
    function onClick(event) {
        swallow(event);
        const chosen = under || event.target;
        stopPointing();
        if (chosen && chosen !== document.documentElement && chosen !== document.body) tell(selectorOf(chosen));
        else tell('');
    }
    function onKey(event) {
        if (event.key !== 'Escape') return;
        swallow(event);
        end();
        tell('');
    }
    const kinds = { mousemove: onMove, click: onClick, mousedown: swallow, mouseup: swallow, keydown: onKey };
    function stopPointing() {
        for (const kind of Object.keys(kinds)) window.removeEventListener(kind, kinds[kind], true);
        frame.remove();
    }
    function hide(selector) {
        preview.replaceSync(selector ? selector + '{display:none!important}' : '');
        if (!document.adoptedStyleSheets.includes(preview))
            document.adoptedStyleSheets = Array.from(document.adoptedStyleSheets).concat(preview);
        return selector ? count(selector) : 0;
    }
    function end() {
        stopPointing();
        hide('');
        window.tessaPicker = undefined;
    }
    for (const kind of Object.keys(kinds)) window.addEventListener(kind, kinds[kind], true);
    document.documentElement.appendChild(frame);
    window.tessaPicker = { hide: hide, end: end };
})();
