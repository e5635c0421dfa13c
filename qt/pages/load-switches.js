// What pages may load and play, inside the page. Runs in every frame before the page does, in a world of its own that
// the page cannot see. The program puts a random word and the switches where %1 and %2 stand.
(function () {
    'use strict';
    const kWord = '%1';
    const kSweepInterval = 500; // milliseconds between two looks at what no event tells
    const kLargestStill = 2048; // pixels
    const kMoves = { data: /^data:image\/(gif|webp|png|apng)/i, never: /\.(jpe?g|svg|ico|bmp)$/i, style: /\.(gif|webp|apng)$/i };
    let may = { images: true, animations: true, videos: true, sounds: true };

    // Inline values that were there before ours.
    function override(kept, element, property, value) {
        if (!kept.has(element)) {
            const style = element.style;
            kept.set(element, { property, value: style.getPropertyValue(property), priority: style.getPropertyPriority(property) });
        }
        element.style.setProperty(property, value, 'important');
    }
    function restore(kept, element) {
        const before = kept.get(element);
        if (!before) return;
        kept.delete(element);
        element.style.setProperty(before.property, before.value, before.priority);
    }
    function restoreAll(kept) {
        for (const element of Array.from(kept.keys())) restore(kept, element);
    }

    // Style sheets of ours, in the document and in the shadow trees that can be reached.
    const roots = new Set([document]);
    function sheetOf(rules) {
        const sheet = new CSSStyleSheet();
        sheet.replaceSync(rules);
        return sheet;
    }
    const unmoving = sheetOf(`*, *::before, *::after, *::marker, ::backdrop {
        animation-duration: 1ms !important; animation-delay: 0s !important; animation-iteration-count: 1 !important;
        transition-duration: 0s !important; transition-delay: 0s !important; scroll-behavior: auto !important; }`);
    const imageless = sheetOf(`*, *::before, *::after { border-image-source: none !important; list-style-image: none !important; }
        *::before, *::after { background-image: none !important; }`);
    function useSheet(sheet, used) {
        for (const root of roots) {
            const others = Array.from(root.adoptedStyleSheets).filter(each => each !== sheet);
            if (used === (others.length < root.adoptedStyleSheets.length)) continue;
            root.adoptedStyleSheets = used ? others.concat(sheet) : others;
        }
    }
    function useSheets() {
        useSheet(unmoving, !may.animations);
        useSheet(imageless, !may.images);
    }
    function every(selector) {
        return Array.from(roots).flatMap(root => Array.from(root.querySelectorAll(selector)));
    }
    function withBackground(visit) {
        for (const element of every('*')) {
            const background = element.style ? getComputedStyle(element).backgroundImage : '';
            if (background.includes('url(')) visit(element, background);
        }
    }

    // Images: the engine loads no new ones; those that are there already are hidden.
    const hidden = new Map(), hiddenBackgrounds = new Map();
    function hide(image) { override(hidden, image, 'visibility', 'hidden'); }
    function hideImages() {
        for (const image of every('img, input[type=image], image, object[type^="image/"]')) {
            if (image.localName !== 'img' || image.naturalWidth > 0) hide(image);
        }
        withBackground(element => override(hiddenBackgrounds, element, 'background-image', 'none'));
    }

    // Moving pictures: a still of the first frame lies over each, for the engine has no way to stop them.
    const stills = new Map(), transparent = new Map(), stillBackgrounds = new Map();
    function pathOf(address) {
        try { return new URL(address, document.baseURI).pathname; } catch (e) { return ''; }
    }
    function mayMove(address) {
        return address.startsWith('data:') ? kMoves.data.test(address) : !kMoves.never.test(pathOf(address));
    }
    function drawn(image, width, height) {
        const scale = Math.min(1, kLargestStill / Math.max(width, height));
        const canvas = document.createElementNS('http://www.w3.org/1999/xhtml', 'canvas');
        canvas.width = Math.max(1, Math.round(width * scale));
        canvas.height = Math.max(1, Math.round(height * scale));
        canvas.getContext('2d').drawImage(image, 0, 0, canvas.width, canvas.height);
        return canvas;
    }
    function dress(canvas, image, opacity) {
        const look = getComputedStyle(image);
        const set = (name, value) => canvas.style.setProperty(name, value, 'important');
        set('all', 'initial');
        set('position', 'absolute');
        set('left', '0');
        set('top', '0');
        set('box-sizing', 'border-box');
        set('pointer-events', 'none');
        set('border-color', 'transparent');
        set('border-style', 'solid');
        set('opacity', opacity);
        for (const name of ['border-width', 'padding', 'border-radius', 'object-fit', 'object-position', 'visibility', 'z-index',
            'transform', 'transform-origin', 'clip-path', 'filter', 'mix-blend-mode']) set(name, look.getPropertyValue(name));
    }
    function place(canvas, image) {
        const there = image.getBoundingClientRect(), here = canvas.getBoundingClientRect();
        const left = there.left - here.left, top = there.top - here.top;
        const moved = (name, by) => canvas.style.setProperty(name, parseFloat(canvas.style.getPropertyValue(name)) + by + 'px', 'important');
        if (Math.abs(left) >= 0.5) moved('left', left);
        if (Math.abs(top) >= 0.5) moved('top', top);
        for (const [name, size] of [['width', image.offsetWidth], ['height', image.offsetHeight]])
            if (canvas.style.getPropertyValue(name) !== size + 'px') canvas.style.setProperty(name, size + 'px', 'important');
        canvas.style.setProperty('display', size(there) ? 'block' : 'none', 'important');
    }
    function size(rect) { return rect.width > 0 && rect.height > 0; }
    const resized = new ResizeObserver(() => placeStills());
    function still(image) {
        const now = stills.get(image);
        if (now && now.address === image.currentSrc && now.canvas.isConnected) return;
        if (now) unstill(image);
        if (!image.isConnected || !image.complete || !image.naturalWidth || !mayMove(image.currentSrc)) return;
        const canvas = drawn(image, image.naturalWidth, image.naturalHeight);
        dress(canvas, image, getComputedStyle(image).opacity);
        override(transparent, image, 'opacity', '0');
        image.after(canvas);
        stills.set(image, { canvas, address: image.currentSrc });
        resized.observe(image);
        place(canvas, image);
    }
    function unstill(image) {
        resized.unobserve(image);
        stills.get(image).canvas.remove();
        stills.delete(image);
        restore(transparent, image);
    }
    function placeStills() {
        for (const [image, { canvas }] of Array.from(stills)) {
            if (image.isConnected && canvas.isConnected) place(canvas, image);
            else unstill(image);
        }
    }
    function stillBackground(element, background) {
        if (stillBackgrounds.has(element)) return;
        const address = (background.match(/url\("?([^")]+)"?\)/) || [])[1] || '';
        if (!(address.startsWith('data:') ? kMoves.data.test(address) : kMoves.style.test(pathOf(address)))) return;
        override(stillBackgrounds, element, 'background-image', 'none');
        const image = new Image();
        image.crossOrigin = 'anonymous';
        image.onload = () => {
            const picture = drawn(image, image.naturalWidth, image.naturalHeight).toDataURL();
            if (!may.animations && may.images) override(stillBackgrounds, element, 'background-image', background.replace(address, picture));
        };
        image.src = address;
    }
    function stillImages() {
        every('img').forEach(still);
        withBackground(stillBackground);
        placeStills();
    }
    function removeStills() {
        Array.from(stills.keys()).forEach(unstill);
        restoreAll(stillBackgrounds);
    }
    function stopMoving() {
        every('svg').forEach(drawing => drawing.pauseAnimations());
        every('marquee').forEach(text => text.stop());
        for (const animation of document.getAnimations()) {
            if (animation instanceof CSSTransition) continue;
            try {
                if (animation.effect.getComputedTiming().iterations === Infinity) animation.effect.updateTiming({ iterations: 1 });
                animation.finish();
            } catch (e) { animation.cancel(); }
        }
    }
    function moveAgain() {
        every('svg').forEach(drawing => drawing.unpauseAnimations());
        every('marquee').forEach(text => text.start());
    }

    // Videos and sounds: an element that may not load loses its sources before it asks for them, until it may.
    const parked = new Map();
    function mayPlay(media) { return media.localName === 'audio' ? may.sounds : may.videos; }
    function park(media) {
        const kept = parked.get(media) || { own: null, sources: new Map(), stream: null };
        const had = media.networkState !== HTMLMediaElement.NETWORK_EMPTY;
        parked.set(media, kept);
        if (media.srcObject) kept.stream = media.srcObject;
        if (media.hasAttribute('src')) kept.own = media.getAttribute('src');
        for (const source of media.querySelectorAll('source[src]')) {
            kept.sources.set(source, source.getAttribute('src'));
            source.removeAttribute('src');
        }
        if (!had && !media.hasAttribute('src') && !media.srcObject) return;
        media.pause();
        media.srcObject = null;
        media.removeAttribute('src');
        media.load();
    }
    function unpark(media) {
        const kept = parked.get(media);
        parked.delete(media);
        for (const [source, address] of kept.sources) source.setAttribute('src', address);
        if (kept.own !== null) media.setAttribute('src', kept.own);
        else if (kept.stream) media.srcObject = kept.stream;
        else media.load();
    }
    function check(media) { if (!mayPlay(media) && needsParking(media)) park(media); }
    function needsParking(media) {
        return media.hasAttribute('src') || media.srcObject || media.querySelector('source[src]');
    }

    // What is new in the page.
    function look(node) {
        const media = node.localName === 'source' ? node.parentElement : node;
        if (media instanceof HTMLMediaElement) check(media);
    }
    const observer = new MutationObserver(records => {
        for (const record of records) {
            if (record.type === 'attributes') look(record.target);
            for (const node of record.addedNodes) {
                if (!(node instanceof Element)) continue;
                look(node);
                node.querySelectorAll('audio, video').forEach(look);
                watchShadows(node);
            }
        }
    });
    function watch(root) { observer.observe(root, { childList: true, subtree: true, attributes: true, attributeFilter: ['src'] }); }
    function watchShadows(from) {
        for (const element of [from, ...from.querySelectorAll('*')]) {
            const root = element.shadowRoot;
            if (!root || roots.has(root)) continue;
            roots.add(root);
            watch(root);
            root.querySelectorAll('audio, video').forEach(look);
            watchShadows(root);
        }
    }
    function restrained() { return !may.images || !may.animations || !may.videos || !may.sounds; }
    function sweep() {
        watchShadows(document);
        useSheets();
        every('audio, video').forEach(check);
        if (!may.images) hideImages();
        else if (!may.animations) stillImages();
        if (!may.animations) stopMoving();
    }
    function onLoaded(event) {
        if (!restrained() || !(event.target instanceof HTMLImageElement)) return;
        if (!may.images) hide(event.target);
        else if (!may.animations) still(event.target);
    }

    let clock = 0;
    function set(switches) {
        const before = may;
        may = switches;
        if (may.animations || !may.images) removeStills();
        if (may.animations && !before.animations) moveAgain();
        if (may.images && !before.images) { restoreAll(hidden); restoreAll(hiddenBackgrounds); }
        for (const media of Array.from(parked.keys())) if (mayPlay(media)) unpark(media);
        useSheets();
        clearInterval(clock);
        observer.disconnect();
        if (!restrained()) return;
        roots.forEach(watch);
        clock = setInterval(sweep, kSweepInterval);
        sweep();
    }

    // The program tells the page, the page its frames. The page itself never sees that message.
    function tellFrames() {
        for (let i = 0; i < window.frames.length; ++i) window.frames[i].postMessage({ [kWord]: may }, '*');
    }
    window.addEventListener('message', event => {
        const switches = event.data && typeof event.data === 'object' ? event.data[kWord] : null;
        if (!switches) return;
        event.stopImmediatePropagation();
        set(switches);
        tellFrames();
    }, true);
    window.tessaLoads = switches => { set(switches); tellFrames(); };
    document.addEventListener('load', onLoaded, true);
    document.addEventListener('DOMContentLoaded', () => { if (restrained()) sweep(); });
    set(%2);
})();
