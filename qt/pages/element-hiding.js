// Hides what the lists name. Runs in every frame before the page does, in a world of its own that the page cannot see.
// Most pages hold nothing that any list names; two rows of bits tell that here, and the program is asked only about the
// rest. It answers while the page waits, so that nothing is seen that is to be hidden. The program puts its words where
// there are names between signs: a secret, the bits of domains and of classes and ids, whether each page has to be asked
// about, and what is hidden everywhere.
(function () {
    'use strict';
    const kMostKeysAtOnce = 100;
    const kSteps = [1, 0x9E3779B1, 0x85EBCA6B];

    function hostOf(origin) {
        const found = /^https?:\/\/([^/:]+|\[[^\]]*\])/.exec(origin);
        return found ? found[1].replace(/\.$/, '') : '';
    }
    const ancestors = location.ancestorOrigins;
    const host = hostOf(location.origin) || hostOf(self.origin);
    const topHost = ancestors.length > 0 ? hostOf(ancestors[ancestors.length - 1]) : host;
    if (!host) return;

    function mayHold(bits, hash) {
        return kSteps.every(function (step) {
            const bit = Math.imul(hash, step) & (bits.length * 8 - 1);
            return (bits.charCodeAt(bit >>> 3) >>> (bit & 7)) & 1;
        });
    }

    // As the program hashes domains: from the end, in 64 bits.
    function domainMayBeNamed(bits, name) {
        const labels = name.split('.');
        for (let end = labels.length; end > 0; --end) {
            let hash = end === labels.length ? 0xCBF29CE484222325n : 0x9AE16A3B2F90404Fn;
            for (let first = end - 1; first >= 0; --first) {
                const text = labels[first] + (first < end - 1 ? '.' : '');
                for (let at = text.length - 1; at >= 0; --at)
                    hash = BigInt.asUintN(64, (hash ^ BigInt(text.charCodeAt(at))) * 0x100000001B3n);
                if (mayHold(bits, Number((hash ^ (hash >> 32n)) & 0xFFFFFFFFn) | 0)) return true;
            }
        }
        return false;
    }

    function ask(what) {
        try {
            const request = new XMLHttpRequest();
            request.open('GET', 'tessaview-hide:' + what + '&word=@word@&host=' + encodeURIComponent(host) + '&top=' +
                         encodeURIComponent(topHost) + '&page=' + encodeURIComponent(location.href.slice(0, 4000)), false);
            request.send();
            return JSON.parse(request.responseText);
        } catch (e) { return {}; }
    }

    // What was stopped leaves no empty box. The kinds are those that the program knows, in its order.
    const kKinds = { IMG: '0', INPUT: '0', IFRAME: '1', FRAME: '1', OBJECT: '1 2 0', EMBED: '1 2 0', VIDEO: '3', AUDIO: '3' };
    const collapsed = new Set();
    function sourceOf(element) {
        if (element.currentSrc || element.src || element.data) return element.currentSrc || element.src || element.data;
        const source = element.querySelector('source');
        return source ? source.src : '';
    }
    function show(element) {
        if (collapsed.delete(element)) element.style.removeProperty('display');
    }
    function collapseIfStopped(element) {
        const kinds = kKinds[element.tagName], source = sourceOf(element);
        if (!kinds || !/^https?:/.test(source)) return;
        if (!ask('stopped?kinds=' + kinds + '&url=' + encodeURIComponent(source)).stopped) return show(element);
        collapsed.add(element);
        element.style.setProperty('display', 'none', 'important');
    }
    document.addEventListener('error', function (event) {
        const of = event.target;
        collapseIfStopped(of.tagName === 'SOURCE' && of.parentNode.networkState === 3 ? of.parentNode : of);
    }, true);
    // A frame that was stopped loads a page of the engine's, which nobody can look into.
    document.addEventListener('load', function (event) {
        const of = event.target, isFrame = of.tagName === 'IFRAME' || of.tagName === 'FRAME' || of.tagName === 'EMBED';
        if (isFrame && !of.contentDocument) collapseIfStopped(of);
        else show(of);
    }, true);

    // Pictures that a script has asked for may come into the page when they have failed already.
    function collapseFailed(node) {
        if (node.nodeType !== Node.ELEMENT_NODE) return;
        const pictures = node.localName === 'img' ? [node] : node.firstElementChild ? node.getElementsByTagName('img') : [];
        for (const each of pictures)
            if (each.complete && each.naturalWidth === 0 && each.currentSrc) collapseIfStopped(each);
    }
    function onAdded(call) {
        new MutationObserver(function (records) {
            for (const record of records) record.addedNodes.forEach(call);
        }).observe(document, { childList: true, subtree: true });
    }

    const sheets = [];
    function put(sheet) {
        if (!document.adoptedStyleSheets.includes(sheet))
            document.adoptedStyleSheets = Array.from(document.adoptedStyleSheets).concat(sheet);
    }
    function hide(text) {
        if (!text) return;
        const sheet = new CSSStyleSheet();
        sheet.replaceSync(text);
        sheets.push(sheet);
        put(sheet);
    }

    const domainBits = atob('@domains@'), keyBits = atob('@keys@');
    const named = @all@ || domainMayBeNamed(domainBits, host) || (topHost !== host && domainMayBeNamed(domainBits, topHost));
    const site = named ? ask('site?') : { generic: true, always: null };
    hide(site.css);
    if (!site.generic) return onAdded(collapseFailed);
    hide(typeof site.always === 'string' ? site.always : '@always@');

    const seenNames = new Set(), seenKeys = new Set();
    let found = [];
    function hashOf(key) {
        if (/[^\x00-\x7f]/.test(key)) key = unescape(encodeURIComponent(key.toWellFormed ? key.toWellFormed() : key));
        let hash = 0x811C9DC5;
        for (let at = 0; at < key.length; ++at) hash = Math.imul(hash ^ key.charCodeAt(at), 0x01000193);
        return hash;
    }
    function note(key) {
        if (seenKeys.has(key)) return;
        seenKeys.add(key);
        try { if (mayHold(keyBits, hashOf(key))) found.push(key); } catch (e) { return; }
    }
    function look(element) {
        const id = element.getAttribute('id'), names = element.getAttribute('class');
        if (id) note('#' + id);
        if (!names || seenNames.has(names)) return;
        seenNames.add(names);
        for (const each of names.split(/\s+/)) if (each) note('.' + each);
    }
    function lookBelow(node) {
        if (node.nodeType !== Node.ELEMENT_NODE) return;
        look(node);
        if (node.firstElementChild) node.querySelectorAll('[class], [id]').forEach(look);
    }
    function askAboutFound() {
        while (found.length > 0) {
            const some = found.splice(0, kMostKeysAtOnce);
            hide(ask('keys?keys=' + encodeURIComponent(JSON.stringify(some))).css);
        }
        // A page that puts sheets of its own there takes ours away.
        sheets.forEach(put);
    }
    // Pages make thousands of elements at once, so whatever has nothing inside is looked at without any more ado.
    function lookAtNew(node, full) {
        if (node.nodeType !== Node.ELEMENT_NODE) return;
        if (node.firstElementChild) return full.add(node);
        look(node);
        if (node.localName === 'img') collapseFailed(node);
    }
    new MutationObserver(function (records) {
        const full = new Set();
        for (let at = 0; at < records.length; ++at) {
            const record = records[at];
            if (record.type === 'attributes') {
                look(record.target);
                continue;
            }
            const nodes = record.addedNodes;
            for (let index = 0; index < nodes.length; ++index) lookAtNew(nodes[index], full);
        }
        // What came with what it stands in is looked at with that.
        for (const node of full) {
            if (full.has(node.parentNode)) continue;
            lookBelow(node);
            collapseFailed(node);
        }
        askAboutFound();
    }).observe(document, { childList: true, subtree: true, attributes: true, attributeFilter: ['class', 'id'] });
    if (document.documentElement) {
        lookBelow(document.documentElement);
        askAboutFound();
    }
})();
