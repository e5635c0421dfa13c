// Hides what the lists name, before it is painted. Runs in every frame before the page does, in a world of its own that
// the page cannot see. Most pages hold nothing that any list names; two rows of bits tell that here, and the program is
// asked only about the rest. It answers while the page waits. The program puts its words where there are names between
// signs: a secret, the bits of domains and of keys, the keys that are parts of attributes, whether each page has to be
// asked about, and what is hidden everywhere.
(function () {
    'use strict';
    const kMostKeysAtOnce = 100;
    const kSteps = [1, 0x9E3779B1, 0x85EBCA6B], kHashStart = 0x811C9DC5, kHashStep = 0x01000193;
    const kLongestStart = 20, kKeyStep = 4, kMostSeen = 20000;
    const kRush = 200, kFramesAtOnce = 15, kLongestRush = 250, kLongestUnseen = 1000;

    function hostOf(origin) {
        const found = /^https?:\/\/([^/:]+|\[[^\]]*\])/.exec(origin);
        return found ? found[1].replace(/\.$/, '') : '';
    }
    const ancestors = location.ancestorOrigins;
    const host = hostOf(location.origin) || hostOf(self.origin);
    const topHost = ancestors.length > 0 ? hostOf(ancestors[ancestors.length - 1]) : host;
    if (!host) return;

    function mayHold(bits, hash) {
        const shift = Math.clz32(bits.length * 8 - 1);
        for (let at = 0; at < kSteps.length; ++at) {
            const bit = Math.imul(hash, kSteps[at]) >>> shift;
            if (((bits.charCodeAt(bit >>> 3) >>> (bit & 7)) & 1) === 0) return false;
        }
        return true;
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
    const answers = new Map();
    function wasStopped(kinds, source) {
        const what = 'stopped?kinds=' + kinds + '&url=' + encodeURIComponent(source);
        if (answers.size >= kMostSeen) answers.clear();
        if (!answers.has(what)) answers.set(what, ask(what).stopped);
        return answers.get(what);
    }
    function collapseIfStopped(element) {
        const kinds = kKinds[element.tagName], source = sourceOf(element);
        if (!kinds || !/^https?:/.test(source)) return;
        if (!wasStopped(kinds, source)) return show(element);
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

    // Fields of a form hide its properties when they are called like them, so these are asked for in another way.
    function getterOf(type, name) { return Object.getOwnPropertyDescriptor(type.prototype, name).get; }
    const idOf = getterOf(Element, 'id'), namesOf = getterOf(Element, 'className'), tagOf = getterOf(Element, 'localName');
    const firstOf = getterOf(Element, 'firstElementChild'), aroundOf = getterOf(Node, 'parentNode');
    const attributeOf = Element.prototype.getAttribute;
    const findBelow = Element.prototype.querySelectorAll, findAll = Document.prototype.querySelectorAll;
    const adopted = Object.getOwnPropertyDescriptor(Document.prototype, 'adoptedStyleSheets');

    // Pictures that a script has asked for may come into the page when they have failed already.
    function collapseFailed(picture) {
        if (picture.complete && picture.naturalWidth === 0 && picture.currentSrc) collapseIfStopped(picture);
    }

    const sheets = [];
    function put() {
        const there = Array.from(adopted.get.call(document));
        const missing = sheets.filter(function (sheet) { return !there.includes(sheet); });
        if (missing.length > 0) adopted.set.call(document, there.concat(missing));
    }
    function hide(text) {
        if (!text) return;
        const sheet = new CSSStyleSheet();
        sheet.replaceSync(text);
        sheets.push(sheet);
        put();
    }

    const domainBits = atob('@domains@'), keyBits = atob('@keys@'), parts = @parts@;
    const named = @all@ || domainMayBeNamed(domainBits, host) || (topHost !== host && domainMayBeNamed(domainBits, topHost));
    const site = named ? ask('site?') : { generic: true, always: null };
    hide(site.css);
    if (site.generic) hide(typeof site.always === 'string' ? site.always : '@always@');

    // Names that were looked at cost nothing more.
    function Seen() {
        const all = new Set();
        return function (text) {
            if (all.has(text)) return true;
            if (all.size >= kMostSeen) all.clear();
            all.add(text);
            return false;
        };
    }
    const wasId = Seen(), wasNames = Seen(), wasName = Seen(), wasLink = Seen();
    let found = [];
    function hashFrom(hash, text) {
        for (let at = 0; at < text.length; ++at) hash = Math.imul(hash ^ text.charCodeAt(at), kHashStep);
        return hash;
    }
    const kId = hashFrom(kHashStart, '#'), kName = hashFrom(kHashStart, '.');
    function isKey(hash) { return mayHold(keyBits, hash || 1); }
    function inBytes(text) {
        if (!/[^\x00-\x7f]/.test(text)) return text;
        try { return unescape(encodeURIComponent(text)); } catch (e) { return ''; }
    }
    // Rules name some by how their values begin, or what these hold. Parts are looked for in all new values at once.
    function Attribute(name) {
        const start = hashFrom(kHashStart, name + '^');
        this.parts = parts.filter(function (key) { return key.startsWith(name + '*'); });
        this.values = [];
        this.look = function (value) {
            const end = Math.min(value.length, kLongestStart);
            let hash = start;
            for (let at = 0; at < end; ++at) {
                hash = Math.imul(hash ^ value.charCodeAt(at), kHashStep);
                if ((at + 1) % kKeyStep === 0 && isKey(hash)) found.push(name + '^' + value.slice(0, at + 1));
            }
            if (this.parts.length > 0) this.values.push(value);
        };
        this.findParts = function () {
            if (this.values.length === 0) return;
            const all = this.values.join('\n');
            this.values = [];
            for (const key of this.parts)
                if (all.includes(key.slice(name.length + 1))) found.push(key);
        };
    }
    const ids = new Attribute('id'), classes = new Attribute('class'), links = new Attribute('href');
    function lookAtNames(names) {
        classes.look(names);
        for (const each of names.split(/\s+/))
            if (each && !wasName(each) && isKey(hashFrom(kName, inBytes(each)))) found.push('.' + each);
    }
    function lookAtId(id) {
        ids.look(id);
        if (isKey(hashFrom(kId, inBytes(id)))) found.push('#' + id);
    }
    function look(element) {
        const names = namesOf.call(element), id = idOf.call(element);
        if (names && !wasNames(names)) lookAtNames(names);
        if (id && !wasId(id)) lookAtId(id);
    }
    function lookAtLink(element) {
        const target = attributeOf.call(element, 'href');
        if (target && !wasLink(target)) links.look(target);
    }
    function lookAt(element) {
        const tag = tagOf.call(element);
        if (tag === 'img') collapseFailed(element);
        if (!site.generic) return;
        look(element);
        if (tag === 'a') lookAtLink(element);
    }
    function each(list, act) {
        for (let at = 0; at < list.length; ++at) act(list[at]);
        return list.length;
    }
    // How many were looked at.
    function lookAtAll(find, root) {
        each(find.call(root, 'img'), collapseFailed);
        if (!site.generic) return 0;
        each(find.call(root, 'a[href]'), lookAtLink);
        const all = find.call(root, '[class], [id]');
        if (root === document) middle = all.length > 0 ? new WeakRef(all[all.length >>> 1]) : null;
        return each(all, look);
    }
    function askAboutFound() {
        for (const each of [ids, classes, links]) each.findParts();
        while (found.length > 0) {
            const some = found.splice(0, kMostKeysAtOnce);
            hide(ask('keys?keys=' + encodeURIComponent(JSON.stringify(some))).css);
        }
        // A page that puts sheets of its own there takes ours away.
        put();
    }

    let looked = 0, middle = null;
    // Whether much is there that was not there before.
    function lookAround() {
        const before = looked, middleBefore = middle && middle.deref();
        looked = lookAtAll(findAll, document);
        askAboutFound();
        return Math.abs(looked - before) >= kRush / 4 || middleBefore !== (middle && middle.deref());
    }

    // Pages make thousands of elements at once, so whatever has nothing inside is looked at without any more ado.
    function lookAtRecords(records) {
        const full = new Set();
        for (let at = 0; at < records.length; ++at) {
            const record = records[at];
            if (record.type === 'attributes') { lookAt(record.target); continue; }
            const nodes = record.addedNodes;
            for (let index = 0; index < nodes.length; ++index) {
                const node = nodes[index];
                if (!(node instanceof Element)) continue;
                if (firstOf.call(node)) full.add(node);
                else lookAt(node);
            }
        }
        // What came with what it stands in is looked at with that.
        for (const node of full) {
            if (full.has(aroundOf.call(node))) continue;
            lookAt(node);
            lookAtAll(findBelow, node);
        }
        askAboutFound();
    }

    // To be told of each element costs more than to look at all of them right before each picture of the page. So while
    // a page makes very many, as when it loads, that is done instead. A size that is observed anew is told then.
    let timer = 0, frames = 0;
    const beforePaint = new ResizeObserver(function () {
        beforePaint.disconnect();
        if (!timer) return;
        const busy = lookAround() || document.readyState === 'loading';
        if (!busy || ++frames >= kFramesAtOnce) return endRush();
        awaitPaint();
    });
    function awaitPaint() {
        requestAnimationFrame(function () {
            if (!timer) return;
            if (document.documentElement) beforePaint.observe(document.documentElement);
            else awaitPaint();
        });
    }
    function beginRush() {
        observer.disconnect();
        frames = 0;
        timer = setTimeout(endUnseen, document.hidden ? kLongestUnseen : kLongestRush);
        awaitPaint();
    }
    function endRush() {
        clearTimeout(timer);
        timer = 0;
        watch();
    }
    function endUnseen() {
        endRush();
        lookAround();
    }
    const observer = new MutationObserver(function (records) {
        if (records.length >= kRush && records.length * 4 >= looked) beginRush();
        else lookAtRecords(records);
    });
    function watch() {
        const what = { childList: true, subtree: true };
        if (site.generic) what.attributeFilter = ['class', 'id', 'href'];
        observer.observe(document, what);
    }
    if (document.documentElement) lookAround();
    beginRush();
})();
