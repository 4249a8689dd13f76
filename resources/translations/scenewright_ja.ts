<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>scenewright::About</name>
    <message>
        <source>About Scenewright</source>
        <translation>Scenewright について</translation>
    </message>
    <message>
        <source>Scenewright %1</source>
        <translation>Scenewright %1</translation>
    </message>
    <message>
        <source>Qt %1, built with Qt %2</source>
        <translation>Qt %1(ビルド時の Qt %2)</translation>
    </message>
    <message>
        <source>An editor for the four scenes of a USB MIDI keyboard controller.</source>
        <translation>USB MIDI キーボードコントローラーの 4 つのシーンを編集するエディターです。</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>ライブラリー</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>ライブラリー</translation>
    </message>
    <message>
        <source>Built with</source>
        <translation>ビルド時のバージョン</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>ライセンス</translation>
    </message>
    <message>
        <source>Scenewright&apos;s own licence:</source>
        <translation>Scenewright 自体のライセンス:</translation>
    </message>
</context>
<context>
    <name>scenewright::AccessInstaller</name>
    <message>
        <source>The rules are installed. If the keyboard is still not allowed, plug it in again.</source>
        <translation>ルールをインストールしました。まだ許可されない場合は、キーボードを接続し直してください。</translation>
    </message>
    <message>
        <source>The rules were not installed: the question for a password was closed.</source>
        <translation>ルールはインストールされませんでした。パスワードの問い合わせが閉じられました。</translation>
    </message>
    <message>
        <source>The rules were not installed: polkit did not allow it, or cannot ask for a password here. Copy Command copies a line for a terminal.</source>
        <translation>ルールはインストールされませんでした。polkit が許可しなかったか、ここではパスワードを問い合わせられません。「コマンドをコピー」は端末用の一行をコピーします。</translation>
    </message>
    <message>
        <source>The rules were not installed: %1</source>
        <translation>ルールはインストールされませんでした: %1</translation>
    </message>
</context>
<context>
    <name>scenewright::Bank</name>
    <message>
        <source>not a bank: it holds {} bytes, and a bank holds {} or is JSON</source>
        <translation>バンクではありません。{} バイトですが、バンクは {} バイトか JSON です</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>テキスト</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>配列</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>オブジェクト</translation>
    </message>
    <message>
        <source>{} must be {}, and is {}</source>
        <translation>{} は {} でなければなりませんが、{} です</translation>
    </message>
    <message>
        <source>it</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>{} is missing</source>
        <translation>{} がありません</translation>
    </message>
    <message>
        <source>{} is unknown</source>
        <translation>{} は不明です</translation>
    </message>
    <message>
        <source>{} is one too many, as {} has {} {}</source>
        <translation>{} は余分です。{} の要素数は {} です ({})</translation>
    </message>
    <message>
        <source>a scene</source>
        <translation>シーン</translation>
    </message>
    <message>
        <source>{} must not stand beside a name</source>
        <translation>{} を名前と一緒に置くことはできません</translation>
    </message>
    <message>
        <source>at most 12 bytes without control characters</source>
        <translation>制御文字を含まない 12 バイト以内</translation>
    </message>
    <message>
        <source>24 hexadecimal digits</source>
        <translation>24 桁の 16 進数</translation>
    </message>
    <message>
        <source>version is {}, and this program knows version {} only</source>
        <translation>version は {} ですが、このプログラムが扱えるのはバージョン {} だけです</translation>
    </message>
    <message>
        <source>a bank</source>
        <translation>バンク</translation>
    </message>
    <message>
        <source>a whole number from 0 to 127</source>
        <translation>0 から 127 までの整数</translation>
    </message>
    <message>
        <source>{0}: {1} -&gt; {2}</source>
        <translation>{0}: {1} -&gt; {2}</translation>
    </message>
    <message>
        <source>its JSON text ends too soon, in line {}</source>
        <translation>JSON テキストが {} 行目で途切れています</translation>
    </message>
    <message>
        <source>its JSON text is wrong at line {}, column {}</source>
        <translation>JSON テキストの {} 行 {} 列に誤りがあります</translation>
    </message>
    <message>
        <source>{} stands twice</source>
        <translation>{} が二度あります</translation>
    </message>
    <message>
        <source>it holds more than {} values</source>
        <translation>値が {} 個を超えています</translation>
    </message>
    <message>
        <source>it is nested deeper than {} levels</source>
        <translation>入れ子が {} 段を超えています</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>{} バイトを超えています</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>Scene {0}, {1}</source>
        <translation>シーン {0}、{1}</translation>
    </message>
    <message>
        <source>Scene {0}, {1} {2}, {3}</source>
        <translation>シーン {0}、{1} {2}、{3}</translation>
    </message>
    <message>
        <source>a scene&apos;s name has at most {0} bytes, and &quot;{1}&quot; has {2}</source>
        <translation>シーンの名前は最大{0}バイトですが、「{1}」は{2}バイトあります</translation>
    </message>
    <message>
        <source>a scene&apos;s name is a text without control characters, and &quot;{}&quot; is none</source>
        <translation>シーンの名前は制御文字のない文字列でなければならず、「{}」はそうではありません</translation>
    </message>
    <message>
        <source>{} must not stand beside CR, CG and CB</source>
        <translation>{}はCR、CG、CBと併記できません</translation>
    </message>
    <message>
        <source># and six hexadecimal digits</source>
        <translation>#と16進数6桁</translation>
    </message>
</context>
<context>
    <name>scenewright::BankCommands</name>
    <message>
        <source>&amp;Open Bank...</source>
        <translation>バンクを開く(&amp;O)...</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>&amp;Recent</source>
        <translation>最近使ったバンク(&amp;R)</translation>
    </message>
    <message>
        <source>Recent banks</source>
        <translation>最近使ったバンク</translation>
    </message>
    <message>
        <source>Open S&amp;cene Into This One...</source>
        <translation>このシーンにシーンを開く(&amp;C)...</translation>
    </message>
    <message>
        <source>Save &amp;This Scene...</source>
        <translation>このシーンを保存(&amp;T)...</translation>
    </message>
    <message>
        <source>Banks and scenes (*.json *.bank)</source>
        <translation>バンクとシーン (*.json *.bank)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 を開きました</translation>
    </message>
    <message>
        <source>Opened %1 as scene %2</source>
        <translation>%1 をシーン %2 として開きました</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 を保存しました</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>%1 を開く</translation>
    </message>
    <message>
        <source>&amp;Save Bank</source>
        <translation>バンクを保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save Bank &amp;As...</source>
        <translation>バンクに名前を付けて保存(&amp;A)...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.bank.json *.json)</source>
        <translation>JSON: 読み、比較し、編集できるテキスト (*.bank.json *.json)</translation>
    </message>
    <message>
        <source>Image, the 1012 bytes as the keyboard holds them (*.bank)</source>
        <translation>イメージ: キーボードが保持する 1012 バイト (*.bank)</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.scene.json *.json)</source>
        <translation>JSON: 読み、比較し、編集できるテキスト (*.scene.json *.json)</translation>
    </message>
    <message>
        <source>Scenes %1</source>
        <translation>シーン %1</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>シーン %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>シーン %1、%2</translation>
    </message>
    <message>
        <source>Open Scene</source>
        <translation>シーンを開く</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>開く(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>キャンセル(&amp;C)</translation>
    </message>
    <message>
        <source>%1 holds one scene, %2. It replaces:</source>
        <translation>%1 にはシーンが 1 つあります（%2）。置き換えるシーン:</translation>
    </message>
    <message>
        <source>%1 holds four scenes. Open as scene %2:</source>
        <translation>%1 にはシーンが 4 つあります。シーン %2 として開くもの:</translation>
    </message>
    <message>
        <source>%1 files were dropped, and one can be open at a time; drop one of them</source>
        <translation>%1 個のファイルがドロップされましたが、開けるのは 1 つだけです。1 つをドロップしてください</translation>
    </message>
    <message>
        <source>Export S&amp;heet...</source>
        <translation>シートを書き出す(&amp;H)...</translation>
    </message>
    <message>
        <source>PDF, a page a scene (*.pdf)</source>
        <translation>PDF、シーンごとに 1 ページ (*.pdf)</translation>
    </message>
    <message>
        <source>SVG, a drawing (*.svg)</source>
        <translation>SVG、図面 (*.svg)</translation>
    </message>
    <message>
        <source>PNG, a picture (*.png)</source>
        <translation>PNG、画像 (*.png)</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>印刷(&amp;I)...</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>Exported the sheet to %1</source>
        <translation>シートを %1 に書き出しました</translation>
    </message>
    <message>
        <source>Printed the sheet to %1</source>
        <translation>シートを印刷しました: %1</translation>
    </message>
    <message>
        <source>Not saved: another program changed %1 meanwhile</source>
        <translation>保存していません: 別のプログラムが %1 を変更しました</translation>
    </message>
    <message>
        <source>Open It</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>それでも保存</translation>
    </message>
</context>
<context>
    <name>scenewright::Cause</name>
    <message>
        <source>You have no permission to use the keyboard: install the rule with &apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos;, then plug the keyboard in again</source>
        <translation>キーボードを使用する権限がありません。&apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos; でルールをインストールし、キーボードを接続し直してください</translation>
    </message>
    <message>
        <source>Another program is using the keyboard: close it and try again</source>
        <translation>別のプログラムがキーボードを使用しています。終了してからもう一度試してください</translation>
    </message>
    <message>
        <source>The keyboard was unplugged: plug it in and try again</source>
        <translation>キーボードが取り外されました。接続してもう一度試してください</translation>
    </message>
    <message>
        <source>The keyboard lacks the second USB interface that scenes travel on: check that it is the model that the device list names, and plug it in again</source>
        <translation>シーンの転送に使う 2 つ目の USB インターフェースがキーボードにありません。デバイスリストに載っているモデルか確認し、接続し直してください</translation>
    </message>
    <message>
        <source>The keyboard does not answer: unplug it, plug it in again and try again</source>
        <translation>キーボードが応答しません。取り外して接続し直し、もう一度試してください</translation>
    </message>
    <message>
        <source>The keyboard answers with longer transfers than scenes have: check that it is the model that the device list names, and plug it in again</source>
        <translation>キーボードの応答がシーンの転送より長くなっています。デバイスリストに載っているモデルか確認し、接続し直してください</translation>
    </message>
    <message>
        <source>The USB system refused to work with the keyboard ({:08x}): plug it in again, at another socket if that does not help</source>
        <translation>USB システムがキーボードを扱えませんでした ({:08x})。接続し直し、直らなければ別のポートを使ってください</translation>
    </message>
    <message>
        <source>No keyboard of the device list is plugged in: plug it in, or see what &apos;scenewright-cli devices&apos; says about yours</source>
        <translation>デバイスリストのキーボードが接続されていません。接続するか、お使いのキーボードについて &apos;scenewright-cli devices&apos; の表示を確認してください</translation>
    </message>
    <message>
        <source>The keyboard&apos;s MIDI port did not come back: plug the keyboard in again</source>
        <translation>キーボードの MIDI ポートが元に戻りませんでした。キーボードを接続し直してください</translation>
    </message>
    <message>
        <source>The system is short of memory or threads: close other programs and try again</source>
        <translation>システムのメモリーまたはスレッドが足りません。ほかのプログラムを閉じてやり直してください</translation>
    </message>
    <message>
        <source>The list of keyboards, project.plist, cannot be read: mend or remove it</source>
        <translation>キーボードの一覧 project.plist を読み込めません。修正するか、取り除いてください</translation>
    </message>
</context>
<context>
    <name>scenewright::ChangeMarks</name>
    <message>
        <source>Mark What Is Not Sent</source>
        <translation>未送信の項目に印を付ける</translation>
    </message>
</context>
<context>
    <name>scenewright::Check</name>
    <message>
        <source>all send {0} on channel {1}</source>
        <translation>すべてチャンネル{1}で{0}を送信します</translation>
    </message>
    <message>
        <source>may all send {0} on channel {1}</source>
        <translation>すべてチャンネル{1}で{0}を送信する可能性があります</translation>
    </message>
    <message>
        <source>both ends of travel send the value {}</source>
        <translation>可動範囲の両端が同じ値{}を送信します</translation>
    </message>
    <message>
        <source>on and off send the same value {}</source>
        <translation>オンとオフが同じ値{}を送信します</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>オフのため何も送信しません</translation>
    </message>
    <message>
        <source>may send nothing: it depends on a value that its list does not have</source>
        <translation>一覧にない値に依存するため、何も送信しない可能性があります</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>オクターブシフトによって音が範囲外になるため、何も送信しない可能性があります</translation>
    </message>
    <message>
        <source>the constant velocity is 0, which ends notes instead of beginning them</source>
        <translation>固定ベロシティが0のため、音が鳴り始めずに止まります</translation>
    </message>
    <message>
        <source>nothing of the name can be seen</source>
        <translation>名前が見えません</translation>
    </message>
</context>
<context>
    <name>scenewright::ConnectionKeeper</name>
    <message>
        <source>Programs that are connected to the keyboard&apos;s MIDI port hear nothing for a second; then they are connected again.</source>
        <translation>キーボードの MIDI ポートに接続しているプログラムは 1 秒ほど受信できませんが、その後ふたたび接続されます。</translation>
    </message>
</context>
<context>
    <name>scenewright::Control</name>
    <message>
        <source>Common</source>
        <translation>共通</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>グループ</translation>
    </message>
    <message>
        <source>Knob</source>
        <translation>ノブ</translation>
    </message>
    <message>
        <source>Slider</source>
        <translation>スライダー</translation>
    </message>
    <message>
        <source>Pad</source>
        <translation>パッド</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>鍵盤</translation>
    </message>
    <message>
        <source>Control {}</source>
        <translation>コントロール {}</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>不明</translation>
    </message>
    <message>
        <source>{}</source>
        <translation>{}</translation>
    </message>
    <message>
        <source>global channel {}</source>
        <translation>グローバルチャンネル {}</translation>
    </message>
    <message>
        <source>keyboard channel {}</source>
        <translation>鍵盤チャンネル {}</translation>
    </message>
    <message>
        <source>pitch-bend speed {}</source>
        <translation>ピッチベンド速度 {}</translation>
    </message>
    <message>
        <source>transposition {}</source>
        <translation>移調 {}</translation>
    </message>
    <message>
        <source>key velocity curve {}</source>
        <translation>鍵盤ベロシティカーブ {}</translation>
    </message>
    <message>
        <source>pad velocity curve {}</source>
        <translation>パッドベロシティカーブ {}</translation>
    </message>
    <message>
        <source>channel {}</source>
        <translation>チャンネル {}</translation>
    </message>
    <message>
        <source>CC {}</source>
        <translation>CC {}</translation>
    </message>
    <message>
        <source>left {}</source>
        <translation>左 {}</translation>
    </message>
    <message>
        <source>right {}</source>
        <translation>右 {}</translation>
    </message>
    <message>
        <source>lower {}</source>
        <translation>下 {}</translation>
    </message>
    <message>
        <source>upper {}</source>
        <translation>上 {}</translation>
    </message>
    <message>
        <source>Note {}</source>
        <translation>ノート {}</translation>
    </message>
    <message>
        <source>behaviour {}</source>
        <translation>動作 {}</translation>
    </message>
    <message>
        <source>on {}</source>
        <translation>オン {}</translation>
    </message>
    <message>
        <source>off {}</source>
        <translation>オフ {}</translation>
    </message>
    <message>
        <source>red {}</source>
        <translation>赤 {}</translation>
    </message>
    <message>
        <source>green {}</source>
        <translation>緑 {}</translation>
    </message>
    <message>
        <source>blue {}</source>
        <translation>青 {}</translation>
    </message>
    <message>
        <source>Sends {0} on channel {1}</source>
        <translation>チャンネル {1} で {0} を送信</translation>
    </message>
    <message>
        <source>Sends nothing</source>
        <translation>何も送信しません</translation>
    </message>
    <message>
        <source>{} Groups</source>
        <translation>グループ {} 個</translation>
    </message>
    <message>
        <source>{} Knobs</source>
        <translation>ノブ {} 個</translation>
    </message>
    <message>
        <source>{} Sliders</source>
        <translation>スライダー {} 個</translation>
    </message>
    <message>
        <source>{} Pads</source>
        <translation>パッド {} 個</translation>
    </message>
    <message>
        <source>{} Keys</source>
        <translation>鍵盤 {} 個</translation>
    </message>
    <message>
        <source>{} and 1 more group</source>
        <translation>{} とほか 1 グループ</translation>
    </message>
    <message>
        <source>{0} and {1} more groups</source>
        <translation>{0} とほか {1} グループ</translation>
    </message>
    <message>
        <source>{} and 1 more knob</source>
        <translation>{} とほか 1 ノブ</translation>
    </message>
    <message>
        <source>{0} and {1} more knobs</source>
        <translation>{0} とほか {1} ノブ</translation>
    </message>
    <message>
        <source>{} and 1 more slider</source>
        <translation>{} とほか 1 スライダー</translation>
    </message>
    <message>
        <source>{0} and {1} more sliders</source>
        <translation>{0} とほか {1} スライダー</translation>
    </message>
    <message>
        <source>{} and 1 more pad</source>
        <translation>{} とほか 1 パッド</translation>
    </message>
    <message>
        <source>{0} and {1} more pads</source>
        <translation>{0} とほか {1} パッド</translation>
    </message>
    <message>
        <source>{} and 1 more key</source>
        <translation>{} とほか 1 鍵盤</translation>
    </message>
    <message>
        <source>{0} and {1} more keys</source>
        <translation>{0} とほか {1} 鍵盤</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlButton</name>
    <message>
        <source>%1, chosen</source>
        <translation>%1、選択中</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1、未送信</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlCommands</name>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message>
        <source>&amp;Copy Control</source>
        <translation>コントロールをコピー(&amp;C)</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>&amp;Paste Control</source>
        <translation>コントロールを貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>&amp;Reset Control</source>
        <translation>コントロールをリセット(&amp;R)</translation>
    </message>
    <message>
        <source>Ctrl+Backspace</source>
        <translation>Ctrl+Backspace</translation>
    </message>
    <message>
        <source>Paste Into %1</source>
        <translation>%1 に貼り付け</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>%1 をリセット</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>%1 をコピーしました</translation>
    </message>
    <message>
        <source>%1 has its default settings</source>
        <translation>%1 を既定の設定に戻しました</translation>
    </message>
    <message>
        <source>&amp;Copy Scene Settings</source>
        <translation>シーンの設定をコピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste Scene Settings</source>
        <translation>シーンの設定を貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Reset Scene Settings</source>
        <translation>シーンの設定をリセット(&amp;R)</translation>
    </message>
    <message>
        <source>Select &amp;All of This Kind</source>
        <translation>この種類をすべて選択(&amp;A)</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>&amp;Fill...</source>
        <translation>一括入力(&amp;F)...</translation>
    </message>
    <message>
        <source>&amp;Transpose...</source>
        <translation>移調(&amp;T)...</translation>
    </message>
    <message>
        <source>%1 have their default settings</source>
        <translation>%1 を既定の設定に戻しました</translation>
    </message>
    <message>
        <source>&amp;Paste Into Controls</source>
        <translation>選択したコントロールに貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Reset Controls</source>
        <translation>選択したコントロールをリセット(&amp;R)</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>%1 に一括入力</translation>
    </message>
    <message>
        <source>Transpose %1</source>
        <translation>%1 を移調</translation>
    </message>
</context>
<context>
    <name>scenewright::DevicePicture</name>
    <message>
        <source>Band around controls</source>
        <translation>コントロールを囲む枠</translation>
    </message>
</context>
<context>
    <name>scenewright::DeviceVerification</name>
    <message>
        <source>&amp;Compare With Device</source>
        <translation>デバイスと比較(&amp;C)</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>Send And &amp;Verify</source>
        <translation>送信して確認(&amp;V)</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Return</source>
        <translation>Ctrl+Shift+Return</translation>
    </message>
    <message>
        <source>Compare Again</source>
        <translation>もう一度比較</translation>
    </message>
    <message>
        <source>Bring Back Earlier Scenes</source>
        <translation>以前のシーンを復元</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>もう一度送信</translation>
    </message>
</context>
<context>
    <name>scenewright::DifferenceDialog</name>
    <message>
        <source>Differences</source>
        <translation>相違点</translation>
    </message>
    <message>
        <source>One setting of the controller is not what you see.</source>
        <translation>コントローラーの設定が 1 つ、表示と異なります。</translation>
    </message>
    <message>
        <source>%1 settings of the controller are not what you see.</source>
        <translation>コントローラーの設定が %1 個、表示と異なります。</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>シーン %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>シーン %1、%2</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>シーン名</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>コントロール</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>キーボード</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>ウィンドウ</translation>
    </message>
    <message>
        <source>Taking changes the window alone. A send transmits the four scenes whole.</source>
        <translation>取り込みはウィンドウだけを変えます。送信は 4 つのシーン全体を送ります。</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>&amp;Take the Keyboard&apos;s</source>
        <translation>キーボードの値を取り込む(&amp;T)</translation>
    </message>
    <message>
        <source>Puts what the keyboard holds into the window: of the selected rows, or of all when none is selected</source>
        <translation>キーボードの内容をウィンドウに取り込みます。選択した行、選択がなければすべての行です</translation>
    </message>
    <message>
        <source>&amp;Send These</source>
        <translation>これを送信(&amp;S)</translation>
    </message>
    <message>
        <source>Sends the four scenes of the window, whole</source>
        <translation>ウィンドウの 4 つのシーン全体を送信します</translation>
    </message>
    <message>
        <source>Cop&amp;y as Text</source>
        <translation>テキストとしてコピー(&amp;Y)</translation>
    </message>
    <message>
        <source>Copies the selected rows, or all</source>
        <translation>選択した行、またはすべての行をコピーします</translation>
    </message>
</context>
<context>
    <name>scenewright::Document</name>
    <message>
        <source>%1[*] – %2</source>
        <extracomment>The name of a file, its mark, and the name of the program.</extracomment>
        <translation>%1[*] – %2</translation>
    </message>
</context>
<context>
    <name>scenewright::Earlier</name>
    <message>
        <source>before a read</source>
        <translation>読み込みの前</translation>
    </message>
    <message>
        <source>on the keyboard before a send</source>
        <translation>送信前にキーボードにあったもの</translation>
    </message>
    <message>
        <source>on the keyboard before the send of {}</source>
        <translation>{} の送信前にキーボードにあったもの</translation>
    </message>
    <message>
        <source>before a file was opened</source>
        <translation>ファイルを開く前</translation>
    </message>
    <message>
        <source>before opening {}</source>
        <translation>{} を開く前</translation>
    </message>
    <message>
        <source>before earlier scenes were brought back</source>
        <translation>以前のシーンを戻す前</translation>
    </message>
</context>
<context>
    <name>scenewright::EarlierCommands</name>
    <message>
        <source>&amp;Earlier Scenes</source>
        <translation>以前のシーン(&amp;E)</translation>
    </message>
    <message>
        <source>Earlier scenes</source>
        <translation>以前のシーン</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>以前のシーンを復元しました</translation>
    </message>
    <message>
        <source>None</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>d MMMM yyyy, hh:mm:ss</source>
        <translation>yyyy年M月d日 hh:mm:ss</translation>
    </message>
    <message>
        <source>Brought back the scenes of %1</source>
        <translation>%1 のシーンを復元しました</translation>
    </message>
    <message>
        <source>Bring Back Scenes</source>
        <translation>シーンを復元</translation>
    </message>
    <message>
        <source>Older</source>
        <translation>以前のもの</translation>
    </message>
    <message>
        <source>Brought back the edited scenes</source>
        <translation>編集したシーンを復元しました</translation>
    </message>
</context>
<context>
    <name>scenewright::File</name>
    <message>
        <source>Cannot read {0}: {1}.</source>
        <translation>{0} を読み込めません: {1}。</translation>
    </message>
    <message>
        <source>Cannot write {0}: {1}.</source>
        <translation>{0} に書き込めません: {1}。</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>フォルダーです</translation>
    </message>
    <message>
        <source>a file without a name</source>
        <translation>名前のないファイル</translation>
    </message>
    <message>
        <source>it is neither a file nor a pipe</source>
        <translation>ファイルでもパイプでもありません</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>{} バイトを超えています</translation>
    </message>
    <message>
        <source>{} is not a folder</source>
        <translation>{} はフォルダーではありません</translation>
    </message>
    <message>
        <source>it is no ordinary file</source>
        <translation>通常のファイルではありません</translation>
    </message>
    <message>
        <source>no name was given</source>
        <translation>名前が指定されていません</translation>
    </message>
    <message>
        <source>its owner and group could not be kept</source>
        <translation>所有者とグループを維持できません</translation>
    </message>
    <message>
        <source>its access list and attributes could not be kept</source>
        <translation>アクセスリストと属性を維持できません</translation>
    </message>
    <message>
        <source>Cannot write {}: the program itself uses this file; choose another name.</source>
        <translation>{} に書き込めません: このファイルはプログラム自身が使用しています。別の名前を選んでください。</translation>
    </message>
    <message>
        <source>a file system is mounted on it</source>
        <translation>ファイルシステムがマウントされています</translation>
    </message>
    <message>
        <source>another program keeps it locked</source>
        <translation>別のプログラムがロックしています</translation>
    </message>
    <message>
        <source>a file&apos;s name does not end in a slash</source>
        <translation>ファイル名の末尾にスラッシュは使えません</translation>
    </message>
    <message>
        <source>The former scenes could not be kept: {}</source>
        <translation>以前のシーンを保存できませんでした: {}</translation>
    </message>
    <message>
        <source>{0}: the list &quot;{1}&quot; holds {2} titles, and {3} are needed</source>
        <translation>{0}: 一覧「{1}」の項目は {2} 個ですが、{3} 個必要です</translation>
    </message>
    <message>
        <source>{0}: the default scene holds {1} controls, and the keyboard has {2}</source>
        <translation>{0}: 既定のシーンのコントロールは {1} 個ですが、キーボードには {2} 個あります</translation>
    </message>
    <message>
        <source>{}: it lists no keyboard</source>
        <translation>{}: キーボードが 1 台も載っていません</translation>
    </message>
    <message>
        <source>The edited scenes could not be kept: {}</source>
        <translation>編集したシーンを保持できませんでした: {}</translation>
    </message>
    <message>
        <source>{}: it is not a list that a program can add to</source>
        <translation>{}: プログラムが追加できる一覧ではありません</translation>
    </message>
    <message>
        <source>There is no home folder for a list of keyboards of your own</source>
        <translation>自分用のキーボード一覧を置くホームフォルダーがありません</translation>
    </message>
    <message>
        <source>{}: the keyboard stands there now, but another list is used</source>
        <translation>{}: キーボードは追加されましたが、別の一覧が使われています</translation>
    </message>
    <message>
        <source>{0}: a sheet is written to a file that ends in one of {1}</source>
        <translation>{0}: シートは次のいずれかで終わるファイルに書き出します: {1}</translation>
    </message>
    <message>
        <source>{}: the sheet cannot be drawn</source>
        <translation>{}: シートを描画できません</translation>
    </message>
    <message>
        <source>nobody writes to this pipe</source>
        <translation>このパイプに書き込むものがありません</translation>
    </message>
</context>
<context>
    <name>scenewright::FillDialog</name>
    <message>
        <source>Notes</source>
        <translation>ノート</translation>
    </message>
    <message>
        <source>Controllers</source>
        <translation>コントローラー</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>MIDI チャンネル</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>色</translation>
    </message>
    <message>
        <source>Their notes, moved</source>
        <translation>ノートの移動</translation>
    </message>
    <message>
        <source>F&amp;ill</source>
        <translation>入力(&amp;I)</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>%1 に一括入力</translation>
    </message>
    <message>
        <source>Fill &amp;with</source>
        <translation>入力する内容(&amp;W)</translation>
    </message>
    <message>
        <source>Fill with</source>
        <translation>入力する内容</translation>
    </message>
    <message>
        <source>First &amp;note</source>
        <translation>最初のノート(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Scale or steps</source>
        <translation>スケールまたは間隔(&amp;S)</translation>
    </message>
    <message>
        <source>A scale, or semitones from each note to the next: 2,2,1</source>
        <translation>スケール、または次のノートまでの半音数: 2,2,1</translation>
    </message>
    <message>
        <source>First &amp;controller</source>
        <translation>最初のコントローラー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Steps</source>
        <translation>間隔(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Channel</source>
        <translation>チャンネル(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>色(&amp;C)</translation>
    </message>
    <message>
        <source>From one to another</source>
        <translation>ある色から別の色へ</translation>
    </message>
    <message>
        <source>Palette %1, in turn</source>
        <translation>パレット %1 を順に</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>始まり(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>終わり(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Semitones</source>
        <translation>半音(&amp;S)</translation>
    </message>
    <message>
        <source>Colour of Pads</source>
        <translation>パッドの色</translation>
    </message>
    <message>
        <source>Cance&amp;l</source>
        <translation>キャンセル(&amp;L)</translation>
    </message>
    <message>
        <source>Steps are whole numbers with commas between, as in 2,2,1</source>
        <translation>間隔は 2,2,1 のようにコンマで区切った整数です</translation>
    </message>
    <message>
        <source>The picture shows what comes of it.</source>
        <translation>結果が図に表示されています。</translation>
    </message>
    <message>
        <source>The first note is typed as in C2 or Db2, or as a number from 0 to 127.</source>
        <translation>最初のノートは C2 や Db2 のように、または 0 から 127 の数で入力します。</translation>
    </message>
    <message>
        <source>The first controller is typed as a number from 0 to 127, or by its name, as in sustain.</source>
        <translation>最初のコントローラーは 0 から 127 の数か、sustain のような名前で入力します。</translation>
    </message>
    <message>
        <source>%1 would be below %2, the lowest there is.</source>
        <translation>%1 が、最も低い %2 を下回ります。</translation>
    </message>
    <message>
        <source>%1 would be above %2, the highest there is.</source>
        <translation>%1 が、最も高い %2 を上回ります。</translation>
    </message>
    <message>
        <source>None of them sends a note.</source>
        <translation>ノートを送信するものがありません。</translation>
    </message>
</context>
<context>
    <name>scenewright::GainWindow</name>
    <message>
        <source>Gain Panel</source>
        <translation>ゲインパネル</translation>
    </message>
    <message>
        <source>Gain %1</source>
        <translation>ゲイン %1</translation>
    </message>
    <message>
        <source>Value of gain %1</source>
        <translation>ゲイン %1 の値</translation>
    </message>
    <message>
        <source>De&amp;fault</source>
        <translation>初期値(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>適用(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Kept while the window is open; not sent</source>
        <translation>ウィンドウが開いている間だけ保たれ、送信されません</translation>
    </message>
</context>
<context>
    <name>scenewright::GuidePages</name>
    <message>
        <source>Guide</source>
        <translation>ガイド</translation>
    </message>
    <message>
        <source>The guide is not among the program&apos;s resources.</source>
        <translation>ガイドがプログラムのリソースにありません。</translation>
    </message>
</context>
<context>
    <name>scenewright::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>ガイド</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>戻る(&amp;B)</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>進む(&amp;F)</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>進む</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>目次(&amp;C)</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>目次</translation>
    </message>
    <message>
        <source>&amp;Open in Browser</source>
        <translation>ブラウザーで開く(&amp;O)</translation>
    </message>
    <message>
        <source>Open in Browser</source>
        <translation>ブラウザーで開く</translation>
    </message>
    <message>
        <source>Search (%1)</source>
        <translation>検索 (%1)</translation>
    </message>
    <message>
        <source>Search this page</source>
        <translation>このページを検索</translation>
    </message>
    <message>
        <source>Not on this page</source>
        <translation>このページにはありません</translation>
    </message>
</context>
<context>
    <name>scenewright::Help</name>
    <message>
        <source>How the strength of a stroke becomes a velocity: Soft gives more for a light stroke, Hard asks for a strong one, and with Constant every stroke gives the constant velocity.</source>
        <translation>打鍵の強さがどのようにベロシティになるか: ソフトは軽い打鍵でも大きく、ハードは強い打鍵を必要とし、固定ではどの打鍵でも固定ベロシティになります。</translation>
    </message>
    <message>
        <source>The velocity of every stroke while the velocity curve is Constant.</source>
        <translation>ベロシティカーブが固定のときの、すべての打鍵のベロシティ。</translation>
    </message>
    <message>
        <source>Momentary: on while it is held. Toggle: on at a press, off at the next one. Trigger: at the press alone. Release: when it is let go.</source>
        <translation>モメンタリ: 押している間オン。トグル: 押すとオン、次に押すとオフ。トリガー: 押したときだけ。リリース: 離したとき。</translation>
    </message>
    <message>
        <source>The number of the controller that it sends, such as 7 for the volume.</source>
        <translation>送信するコントローラーの番号。たとえば 7 は音量です。</translation>
    </message>
    <message>
        <source>The channel of everything in this scene whose own channel is Global.</source>
        <translation>このシーンで、チャンネルがグローバルであるものすべてのチャンネル。</translation>
    </message>
    <message>
        <source>The channel that the keys send on. Global stands for the global MIDI channel.</source>
        <translation>鍵盤が送信するチャンネル。グローバルはグローバル MIDI チャンネルを表します。</translation>
    </message>
    <message>
        <source>How fast pitch bend follows, as a number from 0 to 127.</source>
        <translation>ピッチベンドが追従する速さ。0 から 127 の数です。</translation>
    </message>
    <message>
        <source>Moves the notes of the keys up or down by whole octaves.</source>
        <translation>鍵盤のノートをオクターブ単位で上下に移動します。</translation>
    </message>
    <message>
        <source>What it sends: nothing (Off), a controller (CC) or a note (Note).</source>
        <translation>送信するもの: なし (オフ)、コントローラー (CC)、ノート (ノート)。</translation>
    </message>
    <message>
        <source>The controller or the note that it sends. A note may be typed by its name or its number: Db2, C#2 or 37.</source>
        <translation>送信するコントローラーまたはノート。ノートは名前でも番号でも入力できます: Db2、C#2、37。</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched on.</source>
        <translation>オンになったときのコントローラーの値。</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched off.</source>
        <translation>オフになったときのコントローラーの値。</translation>
    </message>
    <message>
        <source>The channel of the knob and the slider of this number. Global stands for the global MIDI channel.</source>
        <translation>この番号のノブとスライダーのチャンネル。グローバルはグローバル MIDI チャンネルを表します。</translation>
    </message>
    <message>
        <source>The channel that it sends on. Global stands for the global MIDI channel.</source>
        <translation>送信するチャンネル。グローバルはグローバル MIDI チャンネルを表します。</translation>
    </message>
    <message>
        <source>Off: it sends nothing when it is moved.</source>
        <translation>オフ: 動かしても何も送信しません。</translation>
    </message>
    <message>
        <source>The value at the right end. With a smaller one here than on the left, the knob works backwards.</source>
        <translation>右端の値。左より小さくすると、ノブは逆向きに動作します。</translation>
    </message>
    <message>
        <source>The value at the upper end. With a smaller one here than below, the slider works backwards.</source>
        <translation>上端の値。下より小さくすると、スライダーは逆向きに動作します。</translation>
    </message>
    <message>
        <source>The value at the left end.</source>
        <translation>左端の値。</translation>
    </message>
    <message>
        <source>The value at the lower end.</source>
        <translation>下端の値。</translation>
    </message>
    <message>
        <source>How much red is in the light, from 0 to 127.</source>
        <translation>ライトの赤の量。0 から 127。</translation>
    </message>
    <message>
        <source>How much green is in the light, from 0 to 127.</source>
        <translation>ライトの緑の量。0 から 127。</translation>
    </message>
    <message>
        <source>How much blue is in the light, from 0 to 127.</source>
        <translation>ライトの青の量。0 から 127。</translation>
    </message>
</context>
<context>
    <name>scenewright::History</name>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>元に戻す(&amp;U): %1</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Re&amp;do</source>
        <translation>やり直す(&amp;D)</translation>
    </message>
    <message>
        <source>Re&amp;do %1</source>
        <translation>やり直す(&amp;D): %1</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>読み込み</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardCommands</name>
    <message>
        <source>&amp;Keyboards...</source>
        <translation>キーボード(&amp;K)...</translation>
    </message>
    <message>
        <source>Which keyboard to use</source>
        <translation>使用するキーボード</translation>
    </message>
    <message>
        <source>Choose a Keyboard</source>
        <translation>キーボードを選ぶ</translation>
    </message>
    <message>
        <source>Copied. Paste it into a terminal, then plug the keyboard in again.</source>
        <translation>コピーしました。端末に貼り付けて実行し、キーボードを接続し直してください。</translation>
    </message>
    <message>
        <source>Waiting for an administrator&apos;s password...</source>
        <translation>管理者のパスワードを待っています...</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardInput</name>
    <message>
        <source>The keyboard&apos;s port cannot be listened to: %1</source>
        <translation>キーボードのポートを受信できません: %1</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardWatch</name>
    <message>
        <source>Keyboard</source>
        <translation>キーボード</translation>
    </message>
    <message>
        <source>Virtual controller</source>
        <translation>仮想コントローラー</translation>
    </message>
    <message>
        <source>No keyboard plugged in</source>
        <translation>キーボードが接続されていません</translation>
    </message>
    <message>
        <source>Keyboard plugged in, but you have no permission to use it</source>
        <translation>キーボードは接続されていますが、使用する権限がありません</translation>
    </message>
    <message>
        <source>Keyboard in use by another program</source>
        <translation>キーボードは別のプログラムが使用中です</translation>
    </message>
    <message>
        <source>Keyboard plugged in</source>
        <translation>キーボード接続済み</translation>
    </message>
    <message>
        <source>The chosen keyboard is not plugged in</source>
        <translation>選んだキーボードが接続されていません</translation>
    </message>
</context>
<context>
    <name>scenewright::Keyboards</name>
    <message>
        <source>{0} ({1}, serial number {2})</source>
        <translation>{0}（{1}、シリアル番号 {2}）</translation>
    </message>
    <message>
        <source>{0}: the device is not in the list of keyboards; &apos;scenewright-cli devices --add {1}&apos; adds it</source>
        <translation>{0}: この機器はキーボードの一覧にありません。「scenewright-cli devices --add {1}」で追加できます</translation>
    </message>
    <message>
        <source>There are several with the serial number {0}; name one by its port: {1}</source>
        <translation>シリアル番号 {0} の機器が複数あります。ポートで指定してください: {1}</translation>
    </message>
    <message>
        <source>There is no keyboard {}, and no other one of the list</source>
        <translation>キーボード {} はなく、一覧にある他のものもありません</translation>
    </message>
    <message>
        <source>There is no keyboard {0}; plugged in: {1}</source>
        <translation>キーボード {0} はありません。接続中: {1}</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardsDialog</name>
    <message>
        <source>in use</source>
        <translation>使用中</translation>
    </message>
    <message>
        <source>not in the list</source>
        <translation>一覧にない</translation>
    </message>
    <message>
        <source>not allowed</source>
        <translation>許可されていない</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>他で使用中</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>準備完了</translation>
    </message>
    <message>
        <source>Only keyboards of the list are worked with. What you add stands in a list of your own, beside the one that came with the program. Add it only if it has the controls of the picture.</source>
        <translation>一覧にあるキーボードだけを扱います。追加したものは、プログラム付属の一覧とは別の、自分用の一覧に入ります。図と同じコントロールを持つ場合だけ追加してください。</translation>
    </message>
    <message>
        <source>This keyboard is read from and sent to.</source>
        <translation>このキーボードから読み込み、このキーボードへ送信します。</translation>
    </message>
    <message>
        <source>Keyboards</source>
        <translation>キーボード</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>機器</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>ポート</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>シリアル番号</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状態</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>&amp;Use This One</source>
        <translation>これを使う(&amp;U)</translation>
    </message>
    <message>
        <source>Reads from and sends to this keyboard from now on</source>
        <translation>これ以降、このキーボードから読み込み、送信します</translation>
    </message>
    <message>
        <source>&amp;Allow</source>
        <translation>許可する(&amp;A)</translation>
    </message>
    <message>
        <source>Installs the rules that let you use the keyboards of the list, with an administrator&apos;s password</source>
        <translation>一覧のキーボードを使えるようにするルールを、管理者のパスワードでインストールします</translation>
    </message>
    <message>
        <source>Cop&amp;y Command</source>
        <translation>コマンドをコピー(&amp;Y)</translation>
    </message>
    <message>
        <source>Copies the command that lets you use the keyboards of the list, for a terminal</source>
        <translation>一覧のキーボードを使えるようにするコマンドを、端末用にコピーします</translation>
    </message>
    <message>
        <source>Add To My &amp;List</source>
        <translation>自分の一覧に追加(&amp;L)</translation>
    </message>
    <message>
        <source>Adds the device to your own list of keyboards</source>
        <translation>この機器を自分用のキーボード一覧に追加します</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>No USB MIDI device is plugged in.</source>
        <translation>USB MIDI 機器が接続されていません。</translation>
    </message>
</context>
<context>
    <name>scenewright::Listening</name>
    <message>
        <source>more came than could be taken at once, and some of it is lost</source>
        <translation>一度に受け取れる量を超え、一部が失われました</translation>
    </message>
    <message>
        <source>no MIDI port of a keyboard of the list is there; waiting for one</source>
        <translation>リストにあるキーボードの MIDI ポートがありません。接続を待っています</translation>
    </message>
    <message>
        <source>listening to {}</source>
        <translation>{} を聞いています</translation>
    </message>
</context>
<context>
    <name>scenewright::Lists</name>
    <message>
        <source>basic</source>
        <translation>basic_ja</translation>
    </message>
</context>
<context>
    <name>scenewright::MainMenu</name>
    <message>
        <source>Menu</source>
        <translation>メニュー</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>デバイス(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Read Scenes</source>
        <translation>シーンを読み込む(&amp;R)</translation>
    </message>
    <message>
        <source>Ctrl+R</source>
        <translation>Ctrl+R</translation>
    </message>
    <message>
        <source>&amp;Send Scenes</source>
        <translation>シーンを送信(&amp;S)</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Return</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Gain Panel</source>
        <translation>ゲインパネル(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About Scenewright</source>
        <translation>Scenewright について(&amp;A)</translation>
    </message>
    <message>
        <source>More menus</source>
        <translation>その他のメニュー</translation>
    </message>
    <message>
        <source>Previous Control</source>
        <translation>前のコントロール</translation>
    </message>
    <message>
        <source>Ctrl+PgUp</source>
        <translation>Ctrl+PgUp</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>次のコントロール</translation>
    </message>
    <message>
        <source>Ctrl+PgDown</source>
        <translation>Ctrl+PgDown</translation>
    </message>
    <message>
        <source>gamt</source>
        <extracomment>The letters marked in &quot;Gain Panel&quot;, &quot;Appearance&quot;, &quot;Monitor&quot; and &quot;Choose by Touching&quot;.</extracomment>
        <translation>gamt</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>ガイド(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;What&apos;s This?</source>
        <translation>これは何ですか(&amp;W)</translation>
    </message>
</context>
<context>
    <name>scenewright::MainWindow</name>
    <message>
        <source>Scenewright – Virtual controller</source>
        <translation>Scenewright – 仮想コントローラー</translation>
    </message>
    <message>
        <source>Scenewright</source>
        <translation>Scenewright</translation>
    </message>
    <message>
        <source>The program ends when the scenes have been sent</source>
        <translation>シーンの送信が終わるとプログラムを終了します</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>外観(&amp;A)</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外観</translation>
    </message>
    <message>
        <source>As the &amp;System</source>
        <translation>システムに合わせる(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>ライト(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>ダーク(&amp;D)</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>シーン %1、%2</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>エディター</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>コントロール</translation>
    </message>
    <message>
        <source>Picture of the keyboard</source>
        <translation>キーボードの図</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Status line</source>
        <translation>ステータス行</translation>
    </message>
    <message>
        <source>Scene 1</source>
        <translation>シーン 1</translation>
    </message>
    <message>
        <source>Scene 2</source>
        <translation>シーン 2</translation>
    </message>
    <message>
        <source>Scene 3</source>
        <translation>シーン 3</translation>
    </message>
    <message>
        <source>Scene 4</source>
        <translation>シーン 4</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>シーン</translation>
    </message>
    <message>
        <source>Sho&amp;w</source>
        <translation>表示内容(&amp;W)</translation>
    </message>
    <message>
        <source>What the picture shows</source>
        <translation>図に表示する内容</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>読み込み</translation>
    </message>
    <message>
        <source>Read scenes</source>
        <translation>シーンを読み込む</translation>
    </message>
    <message>
        <source>Read the four scenes from the controller (%1)</source>
        <translation>コントローラーから 4 つのシーンを読み込みます (%1)</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>送信</translation>
    </message>
    <message>
        <source>Send scenes</source>
        <translation>シーンを送信</translation>
    </message>
    <message>
        <source>Send the four scenes to the controller (%1)</source>
        <translation>コントローラーへ 4 つのシーンを送信します (%1)</translation>
    </message>
    <message>
        <source>%1 •</source>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1、未送信</translation>
    </message>
    <message>
        <source>The settings of the scene as a whole, and the 45 controls. A click or Return shows the settings of one.</source>
        <translation>シーン全体の設定と 45 個のコントロール。クリックか Return でその設定が表示されます。</translation>
    </message>
    <message>
        <source>The keyboard&apos;s controls in the chosen scene. A click, or Space, shows the settings of one below.</source>
        <translation>選択したシーンでのキーボードのコントロール。クリックか Space で設定が下に表示されます。</translation>
    </message>
    <message>
        <source>The four scenes. One is shown and edited at a time; a read and a send are of all four. A dot is on a scene that is not what the keyboard is known to hold.</source>
        <translation>4 つのシーン。表示と編集は 1 つずつで、読み込みと送信は 4 つ全部です。点は、キーボードにあると分かっている内容と異なるシーンを示します。</translation>
    </message>
    <message>
        <source>Which setting the picture shows on each of its controls.</source>
        <translation>画像の各コントロールに表示する設定。</translation>
    </message>
</context>
<context>
    <name>scenewright::Message</name>
    <message>
        <source>Note off {0}, ch {1}</source>
        <translation>ノートオフ {0}、ch {1}</translation>
    </message>
    <message>
        <source>Note on {0}, ch {1}, velocity {2}</source>
        <translation>ノートオン {0}、ch {1}、ベロシティ {2}</translation>
    </message>
    <message>
        <source>Key pressure {0}, ch {1}, value {2}</source>
        <translation>キープレッシャー {0}、ch {1}、値 {2}</translation>
    </message>
    <message>
        <source>CC {0}, ch {1}, value {2}</source>
        <translation>CC {0}、ch {1}、値 {2}</translation>
    </message>
    <message>
        <source>Program {0}, ch {1}</source>
        <translation>プログラム {0}、ch {1}</translation>
    </message>
    <message>
        <source>Pressure {0}, ch {1}</source>
        <translation>プレッシャー {0}、ch {1}</translation>
    </message>
    <message>
        <source>Pitch bend {0}, ch {1}</source>
        <translation>ピッチベンド {0}、ch {1}</translation>
    </message>
    <message>
        <source>System exclusive</source>
        <translation>システムエクスクルーシブ</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>クロック</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>スタート</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>コンティニュー</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>ストップ</translation>
    </message>
    <message>
        <source>Active sensing</source>
        <translation>アクティブセンシング</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
</context>
<context>
    <name>scenewright::MonitorLines</name>
    <message>
        <source>Time</source>
        <translation>時刻</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>メッセージ</translation>
    </message>
    <message>
        <source>Sent by</source>
        <translation>送信元</translation>
    </message>
</context>
<context>
    <name>scenewright::MonitorStrip</name>
    <message>
        <source>Monitor</source>
        <translation>モニター</translation>
    </message>
    <message>
        <source>&amp;Monitor</source>
        <translation>モニター(&amp;M)</translation>
    </message>
    <message>
        <source>Ctrl+M</source>
        <translation>Ctrl+M</translation>
    </message>
    <message>
        <source>Choose by &amp;Touching</source>
        <translation>触れて選択(&amp;T)</translation>
    </message>
    <message>
        <source>What is listened to</source>
        <translation>受信中のポート</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>フィルター</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Clock Too</source>
        <translation>クロックも表示</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>消去</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
    <message>
        <source>What the keyboard sends</source>
        <translation>キーボードが送信する内容</translation>
    </message>
    <message>
        <source>scene %1?</source>
        <translation>シーン %1?</translation>
    </message>
    <message>
        <source>no control of the scenes</source>
        <translation>シーンのどのコントロールでもない</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeBar</name>
    <message>
        <source>Dismiss</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>お知らせ</translation>
    </message>
    <message>
        <source>Dismiss the notice</source>
        <translation>お知らせを閉じる</translation>
    </message>
    <message>
        <source>Details...</source>
        <translation>詳細...</translation>
    </message>
    <message>
        <source>Details of the notice</source>
        <translation>お知らせの詳細</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeDetails</name>
    <message>
        <source>Notice</source>
        <translation>お知らせ</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>scenewright::Outcome</name>
    <message>
        <source>default scenes are shown</source>
        <translation>既定のシーンを表示しています</translation>
    </message>
    <message>
        <source>{0} of the {1} bytes shown did not come from the keyboard</source>
        <translation>表示中の {1} バイトのうち {0} バイトはキーボードから届いていません</translation>
    </message>
    <message>
        <source>no file was written</source>
        <translation>ファイルは書き込まれませんでした</translation>
    </message>
    <message>
        <source>there is no backup and nothing was sent</source>
        <translation>バックアップはなく、何も送信されませんでした</translation>
    </message>
    <message>
        <source>nothing was sent</source>
        <translation>何も送信されませんでした</translation>
    </message>
    <message>
        <source>the keyboard may hold half a bank, and sending again repairs it</source>
        <translation>キーボードのバンクが不完全な可能性があり、もう一度送信すれば直ります</translation>
    </message>
    <message>
        <source>what was sent could not be checked</source>
        <translation>送信した内容を確認できませんでした</translation>
    </message>
    <message>
        <source>nothing was compared</source>
        <translation>比較は行われませんでした</translation>
    </message>
    <message>
        <source>it is not known what would change</source>
        <translation>何が変わるかは不明です</translation>
    </message>
    <message>
        <source>the answer was too short</source>
        <translation>応答が短すぎました</translation>
    </message>
    <message>
        <source>the keyboard was unplugged</source>
        <translation>キーボードが抜かれました</translation>
    </message>
    <message>
        <source>the keyboard refused it</source>
        <translation>キーボードに拒否されました</translation>
    </message>
    <message>
        <source>the keyboard did not answer</source>
        <translation>キーボードが応答しませんでした</translation>
    </message>
    <message>
        <source>the answer was too long</source>
        <translation>応答が長すぎました</translation>
    </message>
    <message>
        <source>the system has no memory left</source>
        <translation>システムのメモリーがなくなりました</translation>
    </message>
    <message>
        <source>the USB transfer failed</source>
        <translation>USB 転送に失敗しました</translation>
    </message>
    <message>
        <source>at packet {}</source>
        <translation>パケット {}</translation>
    </message>
    <message>
        <source>at answer {}</source>
        <translation>応答 {}</translation>
    </message>
    <message>
        <source>before the first byte</source>
        <translation>最初のバイトの前</translation>
    </message>
    <message>
        <source>at byte {0} of {1}</source>
        <translation>{1} バイト中のバイト {0}</translation>
    </message>
    <message>
        <source>The program could not go on</source>
        <translation>プログラムは処理を続けられませんでした</translation>
    </message>
    <message>
        <source>{0} of {1} transfers failed, the first {2} ({3})</source>
        <translation>{1} 回の転送のうち {0} 回が失敗しました。最初の失敗は{2}です（{3}）</translation>
    </message>
    <message>
        <source>The keyboard could not be reached</source>
        <translation>キーボードに接続できませんでした</translation>
    </message>
    <message>
        <source>A send is still running</source>
        <translation>まだ送信中です</translation>
    </message>
    <message>
        <source>The transfer could not be started</source>
        <translation>転送を開始できませんでした</translation>
    </message>
    <message>
        <source>The transfer was cancelled</source>
        <translation>転送は中止されました</translation>
    </message>
    <message>
        <source>The controller holds what was sent</source>
        <translation>コントローラーの内容は送信したものと同じです</translation>
    </message>
    <message>
        <source>The controller holds what you see</source>
        <translation>コントローラーの内容は表示と一致しています</translation>
    </message>
    <message>
        <source>Settings that differ: {}</source>
        <translation>異なる設定: {}</translation>
    </message>
    <message>
        <source>The controller does not hold what was sent; settings that differ: {}</source>
        <translation>コントローラーの内容は送信したものと異なります。異なる設定: {}</translation>
    </message>
    <message>
        <source>{0}: {1}</source>
        <translation>{0}：{1}</translation>
    </message>
    <message>
        <source>The keyboard holds values above 127, which scenes cannot hold; read as 0 instead: {}</source>
        <translation>キーボードにシーンでは使えない 127 を超える値があります。0 として読み込んだ数: {}</translation>
    </message>
    <message>
        <source>The send that was begun at {0} did not end: {1} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>{0} に始めた送信は終わりませんでした。4 シーンのうち {1} シーンが送信され、キーボードには両方のバンクが混ざっている可能性があります</translation>
    </message>
    <message>
        <source>The send of {0} that was begun at {1} did not end: {2} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>{1} に始めた {0} の送信は終わりませんでした。4 シーンのうち {2} シーンが送信され、キーボードには両方のバンクが混ざっている可能性があります</translation>
    </message>
</context>
<context>
    <name>scenewright::PadColours</name>
    <message>
        <source>Colours</source>
        <translation>色</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>%1 の色</translation>
    </message>
    <message>
        <source>&amp;Other Colour...</source>
        <translation>その他の色(&amp;O)...</translation>
    </message>
    <message>
        <source>Colour of the Pad</source>
        <translation>パッドの色</translation>
    </message>
</context>
<context>
    <name>scenewright::Picture</name>
    <message>
        <source>CC</source>
        <translation>CC</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>ノート</translation>
    </message>
    <message>
        <source>CC#
%s</source>
        <translation>CC#
%s</translation>
    </message>
    <message>
        <source>Note
%s</source>
        <translation>ノート
%s</translation>
    </message>
    <message>
        <source>L/L
%s</source>
        <translation>下/左
%s</translation>
    </message>
    <message>
        <source>U/R
%s</source>
        <translation>上/右
%s</translation>
    </message>
    <message>
        <source>OFF
%s</source>
        <translation>オフ
%s</translation>
    </message>
    <message>
        <source>ON
%s</source>
        <translation>オン
%s</translation>
    </message>
</context>
<context>
    <name>scenewright::PlayBar</name>
    <message>
        <source>&amp;Play This Scene Here</source>
        <translation>このシーンをここで演奏(&amp;P)</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>演奏</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>演奏中</translation>
    </message>
    <message>
        <source>Stop Playing</source>
        <translation>演奏を終了</translation>
    </message>
    <message>
        <source>The scene cannot be played: %1</source>
        <translation>シーンを演奏できません: %1</translation>
    </message>
    <message>
        <source>Playing scene %1: connect a program to the port %2</source>
        <translation>シーン %1 を演奏中: プログラムをポート %2 に接続してください</translation>
    </message>
    <message>
        <source>Playing scene %1 into %3, through the port %2</source>
        <translation>シーン %1 をポート %2 経由で %3 へ演奏中</translation>
    </message>
    <message>
        <source>Playing scene %1 as the virtual controller holds it</source>
        <translation>仮想コントローラーにあるシーン %1 を演奏中</translation>
    </message>
    <message>
        <source>Rows from A and W: keys, octave %1 (Z, X)   1–8: pads   velocity %2 (C, V)   −, =: knob or slider</source>
        <translation>A と W からの段: 鍵盤、オクターブ %1 (Z、X)   1–8: パッド   ベロシティ %2 (C、V)   -、^: ノブ、スライダー</translation>
    </message>
</context>
<context>
    <name>scenewright::RenameDialog</name>
    <message>
        <source>&amp;Rename</source>
        <translation>名前を変更(&amp;R)</translation>
    </message>
    <message>
        <source>Rename Scene</source>
        <translation>シーン名の変更</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>名前(&amp;N)</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>キャンセル(&amp;C)</translation>
    </message>
    <message>
        <source>%1 of %2 bytes</source>
        <translation>%2 バイト中 %1 バイト</translation>
    </message>
</context>
<context>
    <name>scenewright::SafeSending</name>
    <message>
        <source>Read the Keyboard &amp;Before a Send</source>
        <translation>送信前にキーボードを読み込む(&amp;B)</translation>
    </message>
    <message>
        <source>Send Scenes</source>
        <translation>シーンの送信</translation>
    </message>
    <message>
        <source>These are not your keyboard&apos;s scenes</source>
        <translation>これはお使いのキーボードのシーンではありません</translation>
    </message>
    <message>
        <source>The window shows the scenes that it starts with, and the keyboard may hold others. A send replaces all four of them.</source>
        <translation>ウィンドウには起動時のシーンが表示されており、キーボードには別のシーンがあるかもしれません。送信すると 4 つすべてが置き換わります。</translation>
    </message>
    <message>
        <source>&amp;Read First</source>
        <translation>先に読み込む(&amp;R)</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be read</source>
        <translation>キーボードの内容を読み込めませんでした</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be kept</source>
        <translation>キーボードの内容を保管できませんでした</translation>
    </message>
    <message>
        <source>&amp;Send Anyway</source>
        <translation>それでも送信(&amp;S)</translation>
    </message>
    <message>
        <source>The keyboard held other scenes; they are kept</source>
        <translation>キーボードには別のシーンがありました。保管してあります</translation>
    </message>
    <message>
        <source>Put Them Back</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>もう一度送信</translation>
    </message>
    <message>
        <source>Bring Back What Was There</source>
        <translation>以前の内容に戻す</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>以前のシーンを復元しました</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneChanges</name>
    <message>
        <source>CC</source>
        <translation>CC</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>ノート</translation>
    </message>
    <message>
        <source>Scene {}</source>
        <translation>シーン {}</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>シーン</translation>
    </message>
    <message>
        <source>{0} {1}</source>
        <translation>{0} {1}</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneChecks</name>
    <message>
        <source>What may not be meant in these scenes</source>
        <translation>これらのシーンで意図していない可能性のある設定</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>シーン %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>To Check</source>
        <translation>確認事項</translation>
    </message>
    <message>
        <source>%1 to check</source>
        <translation>確認 %1 件</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneCommands</name>
    <message>
        <source>&amp;Scene</source>
        <translation>シーン(&amp;S)</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>シーン</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>名前の変更(&amp;R)...</translation>
    </message>
    <message>
        <source>&amp;Copy To</source>
        <translation>コピー先(&amp;C)</translation>
    </message>
    <message>
        <source>S&amp;wap With</source>
        <translation>入れ替え(&amp;W)</translation>
    </message>
    <message>
        <source>R&amp;eset Scene</source>
        <translation>シーンをリセット(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;%1  %2</source>
        <translation>&amp;%1  %2</translation>
    </message>
    <message>
        <source>Rename Scene %1</source>
        <translation>シーン %1 の名前変更</translation>
    </message>
    <message>
        <source>Copy Scene %1 to %2</source>
        <translation>シーン %1 を %2 へコピー</translation>
    </message>
    <message>
        <source>Swap Scenes %1 and %2</source>
        <translation>シーン %1 と %2 の入れ替え</translation>
    </message>
    <message>
        <source>Reset Scene %1</source>
        <translation>シーン %1 のリセット</translation>
    </message>
    <message>
        <source>&amp;Duplicate From File...</source>
        <translation>ファイルから複製(&amp;D)...</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneSheet</name>
    <message>
        <source>%1, channel %2</source>
        <translation>%1、チャンネル %2</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>なし</translation>
    </message>
    <message>
        <source>Sends</source>
        <translation>送信内容</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>シーン %1: %2</translation>
    </message>
    <message>
        <source>%1: the printer takes no sheet</source>
        <translation>%1: プリンターがシートを受け付けません</translation>
    </message>
</context>
<context>
    <name>scenewright::ScenesKeeper</name>
    <message>
        <source>d MMMM yyyy, hh:mm</source>
        <translation>yyyy年M月d日 hh:mm</translation>
    </message>
    <message>
        <source>The scenes edited on %1 were neither sent nor saved</source>
        <translation>%1 に編集したシーンは送信も保存もされていません</translation>
    </message>
    <message>
        <source>The scenes of %1, edited on %2, were neither sent nor saved</source>
        <translation>%2 に編集した %1 のシーンは送信も保存もされていません</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>復元</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>破棄</translation>
    </message>
</context>
<context>
    <name>scenewright::Sequencer</name>
    <message>
        <source>there is no sequencer of ALSA&apos;s on this system ({}); as root, modprobe snd-seq loads it</source>
        <translation>このシステムには ALSA のシーケンサーがありません ({})。root で modprobe snd-seq を実行すると読み込まれます</translation>
    </message>
    <message>
        <source>you have no permission to use {}; sit at the machine, or be a member of the group audio</source>
        <translation>{} を使う権限がありません。このマシンに直接ログインするか、グループ audio に加わってください</translation>
    </message>
    <message>
        <source>cannot use ALSA&apos;s sequencer ({}): {}</source>
        <translation>ALSA のシーケンサー ({}) を使えません: {}</translation>
    </message>
    <message>
        <source>another program has the MIDI port {}:{} for itself; end that program first</source>
        <translation>別のプログラムが MIDI ポート {}:{} を占有しています。先にそのプログラムを終了してください</translation>
    </message>
    <message>
        <source>cannot connect {}:{} to {}:{}: {}</source>
        <translation>{}:{} を {}:{} に接続できません: {}</translation>
    </message>
    <message>
        <source>what is played does not reach a program that is connected: {}</source>
        <translation>演奏した内容が接続中のプログラムに届きません: {}</translation>
    </message>
</context>
<context>
    <name>scenewright::Setting</name>
    <message>
        <source>Global MIDI channel</source>
        <translation>グローバル MIDI チャンネル</translation>
    </message>
    <message>
        <source>Keyboard MIDI channel</source>
        <translation>鍵盤の MIDI チャンネル</translation>
    </message>
    <message>
        <source>Pitch-bend speed</source>
        <translation>ピッチベンド速度</translation>
    </message>
    <message>
        <source>Octave transposition</source>
        <translation>オクターブシフト</translation>
    </message>
    <message>
        <source>Key velocity curve</source>
        <translation>鍵盤ベロシティカーブ</translation>
    </message>
    <message>
        <source>Key constant velocity</source>
        <translation>鍵盤固定ベロシティ</translation>
    </message>
    <message>
        <source>Pad velocity curve</source>
        <translation>パッドベロシティカーブ</translation>
    </message>
    <message>
        <source>Pad constant velocity</source>
        <translation>パッド固定ベロシティ</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>MIDI チャンネル</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>有効</translation>
    </message>
    <message>
        <source>CC number</source>
        <translation>CC 番号</translation>
    </message>
    <message>
        <source>Right value</source>
        <translation>右の値</translation>
    </message>
    <message>
        <source>Left value</source>
        <translation>左の値</translation>
    </message>
    <message>
        <source>Upper value</source>
        <translation>上の値</translation>
    </message>
    <message>
        <source>Lower value</source>
        <translation>下の値</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>タイプ</translation>
    </message>
    <message>
        <source>CC or note number</source>
        <translation>CC/ノート番号</translation>
    </message>
    <message>
        <source>On value</source>
        <translation>オン時の値</translation>
    </message>
    <message>
        <source>Off value</source>
        <translation>オフ時の値</translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation>動作</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>赤</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>緑</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>青</translation>
    </message>
</context>
<context>
    <name>scenewright::StatusLine</name>
    <message>
        <source>Status</source>
        <translation>ステータス</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>準備完了</translation>
    </message>
    <message>
        <source>Transfer in progress</source>
        <translation>転送中</translation>
    </message>
</context>
<context>
    <name>scenewright::StripPlace</name>
    <message>
        <source>Below the picture</source>
        <translation>図の下</translation>
    </message>
</context>
<context>
    <name>scenewright::Try</name>
    <message>
        <source>note {}</source>
        <translation>ノート {}</translation>
    </message>
    <message>
        <source>{0}, ch {1}</source>
        <translation>{0}、ch {1}</translation>
    </message>
    <message>
        <source>sent {0}, expected {1}</source>
        <translation>{0} を送信、期待値は {1}</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>オフのため何も送信しません</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>オクターブシフトによって音が範囲外になるため、何も送信しない可能性があります</translation>
    </message>
    <message>
        <source>sends nothing: it has a value that its list has not</source>
        <translation>リストにない値があるため何も送信しません</translation>
    </message>
    <message>
        <source>{} right</source>
        <translation>正しい：{}</translation>
    </message>
    <message>
        <source>{} not as assumed</source>
        <translation>想定と異なる：{}</translation>
    </message>
    <message>
        <source>{} wrong</source>
        <translation>誤り：{}</translation>
    </message>
    <message>
        <source>{} skipped</source>
        <translation>スキップ：{}</translation>
    </message>
    <message>
        <source>{} passed over</source>
        <translation>対象外：{}</translation>
    </message>
    <message>
        <source>{} not tried</source>
        <translation>未確認：{}</translation>
    </message>
    <message>
        <source>sent {}</source>
        <translation>{} を送信</translation>
    </message>
    <message>
        <source>sent {}, not quite as is assumed</source>
        <translation>{} を送信、想定と少し異なります</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>スキップ</translation>
    </message>
</context>
<context>
    <name>scenewright::TryStrip</name>
    <message>
        <source>Try It</source>
        <translation>試す</translation>
    </message>
    <message>
        <source>Try &amp;It</source>
        <translation>試す(&amp;I)</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>スキップ</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Copy Report</source>
        <translation>結果をコピー</translation>
    </message>
    <message>
        <source>End</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>What was tried</source>
        <translation>試した内容</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>コントロール</translation>
    </message>
    <message>
        <source>Expected</source>
        <translation>期待値</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>結果</translation>
    </message>
    <message>
        <source>It is not known yet what the keyboard holds. Send or read the scenes first, and then try them</source>
        <translation>キーボードの内容がまだわかりません。先にシーンを送信するか読み込んでから試してください</translation>
    </message>
    <message>
        <source>Choose scene %1 on the keyboard.</source>
        <translation>キーボードでシーン %1 を選んでください。</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>%1 Scene %2: %3</source>
        <translation>%1 シーン %2: %3</translation>
    </message>
    <message>
        <source>Touch %1. %2</source>
        <translation>%1 に触れてください。%2</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>シーン %1: %2</translation>
    </message>
</context>
<context>
    <name>scenewright::UnsentButton</name>
    <message>
        <source>1 change not sent</source>
        <translation>未送信の変更 1 件</translation>
    </message>
    <message>
        <source>%1 changes not sent</source>
        <translation>未送信の変更 %1 件</translation>
    </message>
    <message>
        <source>Show in what the window and the keyboard differ</source>
        <translation>ウィンドウとキーボードの違いを表示します</translation>
    </message>
</context>
<context>
    <name>scenewright::ValuePanes</name>
    <message>
        <source>Red %1, green %2, blue %3 of 255</source>
        <translation>赤 %1、緑 %2、青 %3(最大 255)</translation>
    </message>
    <message>
        <source>No control is chosen. Click one on the picture or in the list, or press Return on a row of the list.</source>
        <translation>コントロールが選択されていません。図またはリストのコントロールをクリックするか、リストの行で Return キーを押してください。</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>シーン名</translation>
    </message>
    <message>
        <source>Settings of the chosen control</source>
        <translation>選択中のコントロールの設定</translation>
    </message>
    <message>
        <source>Mixed colour</source>
        <translation>混合色</translation>
    </message>
    <message>
        <source>fesdvhw</source>
        <extracomment>The letters marked in the menu bar and in &quot;Show&quot;, in any order.</extracomment>
        <translation>fesdvhw</translation>
    </message>
    <message>
        <source>What it sends</source>
        <translation>送信する内容</translation>
    </message>
    <message>
        <source>The name that the keyboard holds of the scene. Scene &gt; Rename changes it.</source>
        <translation>キーボードが保持するシーンの名前。「シーン」&gt;「名前の変更」で変更できます。</translation>
    </message>
    <message>
        <source>The light of the pad, as the three levels mix it. A click opens a palette.</source>
        <translation>3 つのレベルを混ぜたパッドのライト。クリックするとパレットが開きます。</translation>
    </message>
</context>
</TS>
