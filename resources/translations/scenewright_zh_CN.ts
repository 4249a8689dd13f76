<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>scenewright::About</name>
    <message>
        <source>About Scenewright</source>
        <translation>关于 Scenewright</translation>
    </message>
    <message>
        <source>Scenewright %1</source>
        <translation>Scenewright %1</translation>
    </message>
    <message>
        <source>Qt %1, built with Qt %2</source>
        <translation>Qt %1,使用 Qt %2 构建</translation>
    </message>
    <message>
        <source>An editor for the four scenes of a USB MIDI keyboard controller.</source>
        <translation>用于编辑 USB MIDI 键盘控制器四个场景的编辑器。</translation>
    </message>
    <message>
        <source>Libraries</source>
        <translation>库</translation>
    </message>
    <message>
        <source>Library</source>
        <translation>库</translation>
    </message>
    <message>
        <source>Built with</source>
        <translation>构建版本</translation>
    </message>
    <message>
        <source>Licence</source>
        <translation>许可证</translation>
    </message>
    <message>
        <source>Scenewright&apos;s own licence:</source>
        <translation>Scenewright 自身的许可证：</translation>
    </message>
</context>
<context>
    <name>scenewright::AccessInstaller</name>
    <message>
        <source>The rules are installed. If the keyboard is still not allowed, plug it in again.</source>
        <translation>规则已安装。如果键盘仍未获许可，请重新插入。</translation>
    </message>
    <message>
        <source>The rules were not installed: the question for a password was closed.</source>
        <translation>规则未安装：询问密码的窗口被关闭了。</translation>
    </message>
    <message>
        <source>The rules were not installed: polkit did not allow it, or cannot ask for a password here. Copy Command copies a line for a terminal.</source>
        <translation>规则未安装：polkit 没有允许，或者在这里无法询问密码。“复制命令”会复制一行供终端使用的命令。</translation>
    </message>
    <message>
        <source>The rules were not installed: %1</source>
        <translation>规则未安装：%1</translation>
    </message>
</context>
<context>
    <name>scenewright::Bank</name>
    <message>
        <source>not a bank: it holds {} bytes, and a bank holds {} or is JSON</source>
        <translation>不是库文件：它有 {} 字节，而库文件为 {} 字节或 JSON</translation>
    </message>
    <message>
        <source>a text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>an array</source>
        <translation>数组</translation>
    </message>
    <message>
        <source>an object</source>
        <translation>对象</translation>
    </message>
    <message>
        <source>{} must be {}, and is {}</source>
        <translation>{} 必须是 {}，实际是 {}</translation>
    </message>
    <message>
        <source>it</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>{} is missing</source>
        <translation>缺少 {}</translation>
    </message>
    <message>
        <source>{} is unknown</source>
        <translation>{} 未知</translation>
    </message>
    <message>
        <source>{} is one too many, as {} has {} {}</source>
        <translation>{} 是多余的：{} 有 {} 个 {}</translation>
    </message>
    <message>
        <source>a scene</source>
        <translation>一个场景</translation>
    </message>
    <message>
        <source>{} must not stand beside a name</source>
        <translation>{} 不能与名称同时出现</translation>
    </message>
    <message>
        <source>at most 12 bytes without control characters</source>
        <translation>最多 12 字节且不含控制字符</translation>
    </message>
    <message>
        <source>24 hexadecimal digits</source>
        <translation>24 位十六进制数字</translation>
    </message>
    <message>
        <source>version is {}, and this program knows version {} only</source>
        <translation>version 为 {}，而本程序只认识版本 {}</translation>
    </message>
    <message>
        <source>a bank</source>
        <translation>一个库</translation>
    </message>
    <message>
        <source>a whole number from 0 to 127</source>
        <translation>0 到 127 的整数</translation>
    </message>
    <message>
        <source>{0}: {1} -&gt; {2}</source>
        <translation>{0}：{1} -&gt; {2}</translation>
    </message>
    <message>
        <source>its JSON text ends too soon, in line {}</source>
        <translation>JSON 文本在第 {} 行过早结束</translation>
    </message>
    <message>
        <source>its JSON text is wrong at line {}, column {}</source>
        <translation>JSON 文本在第 {} 行第 {} 列有误</translation>
    </message>
    <message>
        <source>{} stands twice</source>
        <translation>{} 出现了两次</translation>
    </message>
    <message>
        <source>it holds more than {} values</source>
        <translation>文件中的值超过 {} 个</translation>
    </message>
    <message>
        <source>it is nested deeper than {} levels</source>
        <translation>嵌套超过 {} 层</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>文件超过 {} 字节</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Scene {0}, {1}</source>
        <translation>场景 {0}，{1}</translation>
    </message>
    <message>
        <source>Scene {0}, {1} {2}, {3}</source>
        <translation>场景 {0}，{1} {2}，{3}</translation>
    </message>
    <message>
        <source>a scene&apos;s name has at most {0} bytes, and &quot;{1}&quot; has {2}</source>
        <translation>场景名称最多 {0} 字节，而“{1}”有 {2} 字节</translation>
    </message>
    <message>
        <source>a scene&apos;s name is a text without control characters, and &quot;{}&quot; is none</source>
        <translation>场景名称必须是不含控制字符的文本，而“{}”不是</translation>
    </message>
    <message>
        <source>{} must not stand beside CR, CG and CB</source>
        <translation>{} 不能与 CR、CG 和 CB 并存</translation>
    </message>
    <message>
        <source># and six hexadecimal digits</source>
        <translation># 和六位十六进制数字</translation>
    </message>
</context>
<context>
    <name>scenewright::BankCommands</name>
    <message>
        <source>&amp;Open Bank...</source>
        <translation>打开库(&amp;O)...</translation>
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
        <translation>最近使用(&amp;R)</translation>
    </message>
    <message>
        <source>Recent banks</source>
        <translation>最近使用的库</translation>
    </message>
    <message>
        <source>Open S&amp;cene Into This One...</source>
        <translation>将场景载入当前场景(&amp;C)...</translation>
    </message>
    <message>
        <source>Save &amp;This Scene...</source>
        <translation>保存当前场景(&amp;T)...</translation>
    </message>
    <message>
        <source>Banks and scenes (*.json *.bank)</source>
        <translation>库和场景 (*.json *.bank)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>已打开 %1</translation>
    </message>
    <message>
        <source>Opened %1 as scene %2</source>
        <translation>已将 %1 打开为场景 %2</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Open %1</source>
        <translation>打开 %1</translation>
    </message>
    <message>
        <source>&amp;Save Bank</source>
        <translation>保存库(&amp;S)</translation>
    </message>
    <message>
        <source>Save Bank &amp;As...</source>
        <translation>库另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.bank.json *.json)</source>
        <translation>JSON：可阅读、比较和编辑的文本 (*.bank.json *.json)</translation>
    </message>
    <message>
        <source>Image, the 1012 bytes as the keyboard holds them (*.bank)</source>
        <translation>映像：键盘中保存的 1012 个字节 (*.bank)</translation>
    </message>
    <message>
        <source>JSON, a text to read, compare and edit (*.scene.json *.json)</source>
        <translation>JSON：可阅读、比较和编辑的文本 (*.scene.json *.json)</translation>
    </message>
    <message>
        <source>Scenes %1</source>
        <translation>场景 %1</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>场景 %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>场景 %1，%2</translation>
    </message>
    <message>
        <source>Open Scene</source>
        <translation>打开场景</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>打开(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
    <message>
        <source>%1 holds one scene, %2. It replaces:</source>
        <translation>%1 含有一个场景（%2）。它将替换：</translation>
    </message>
    <message>
        <source>%1 holds four scenes. Open as scene %2:</source>
        <translation>%1 含有四个场景。打开为场景 %2：</translation>
    </message>
    <message>
        <source>%1 files were dropped, and one can be open at a time; drop one of them</source>
        <translation>拖放了 %1 个文件，但一次只能打开一个；请只拖放其中一个</translation>
    </message>
    <message>
        <source>Export S&amp;heet...</source>
        <translation>导出谱单(&amp;H)...</translation>
    </message>
    <message>
        <source>PDF, a page a scene (*.pdf)</source>
        <translation>PDF，每个场景一页 (*.pdf)</translation>
    </message>
    <message>
        <source>SVG, a drawing (*.svg)</source>
        <translation>SVG，矢量图 (*.svg)</translation>
    </message>
    <message>
        <source>PNG, a picture (*.png)</source>
        <translation>PNG，图片 (*.png)</translation>
    </message>
    <message>
        <source>Pr&amp;int...</source>
        <translation>打印(&amp;I)...</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>Exported the sheet to %1</source>
        <translation>谱单已导出到 %1</translation>
    </message>
    <message>
        <source>Printed the sheet to %1</source>
        <translation>谱单已打印：%1</translation>
    </message>
    <message>
        <source>Not saved: another program changed %1 meanwhile</source>
        <translation>未保存：其间另一个程序更改了 %1</translation>
    </message>
    <message>
        <source>Open It</source>
        <translation>打开它</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>仍然保存</translation>
    </message>
</context>
<context>
    <name>scenewright::Cause</name>
    <message>
        <source>You have no permission to use the keyboard: install the rule with &apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos;, then plug the keyboard in again</source>
        <translation>您没有使用键盘的权限:请用 &apos;scenewright-cli udev-rules | sudo tee /etc/udev/rules.d/70-scenewright.rules&apos; 安装规则,然后重新插入键盘</translation>
    </message>
    <message>
        <source>Another program is using the keyboard: close it and try again</source>
        <translation>另一个程序正在使用键盘:请关闭它后重试</translation>
    </message>
    <message>
        <source>The keyboard was unplugged: plug it in and try again</source>
        <translation>键盘已拔出:请插入后重试</translation>
    </message>
    <message>
        <source>The keyboard lacks the second USB interface that scenes travel on: check that it is the model that the device list names, and plug it in again</source>
        <translation>键盘缺少用于传输场景的第二个 USB 接口:请确认它是设备列表中的型号,然后重新插入</translation>
    </message>
    <message>
        <source>The keyboard does not answer: unplug it, plug it in again and try again</source>
        <translation>键盘无响应:请拔出并重新插入后重试</translation>
    </message>
    <message>
        <source>The keyboard answers with longer transfers than scenes have: check that it is the model that the device list names, and plug it in again</source>
        <translation>键盘返回的传输长于场景所需:请确认它是设备列表中的型号,然后重新插入</translation>
    </message>
    <message>
        <source>The USB system refused to work with the keyboard ({:08x}): plug it in again, at another socket if that does not help</source>
        <translation>USB 系统无法使用该键盘 ({:08x}):请重新插入,若仍无效请换一个接口</translation>
    </message>
    <message>
        <source>No keyboard of the device list is plugged in: plug it in, or see what &apos;scenewright-cli devices&apos; says about yours</source>
        <translation>未连接设备列表中的键盘:请将其插入,或查看 &apos;scenewright-cli devices&apos; 对您的键盘的说明</translation>
    </message>
    <message>
        <source>The keyboard&apos;s MIDI port did not come back: plug the keyboard in again</source>
        <translation>键盘的 MIDI 端口没有恢复：请重新插上键盘</translation>
    </message>
    <message>
        <source>The system is short of memory or threads: close other programs and try again</source>
        <translation>系统的内存或线程不足：请关闭其他程序后重试</translation>
    </message>
    <message>
        <source>The list of keyboards, project.plist, cannot be read: mend or remove it</source>
        <translation>无法读取键盘列表 project.plist：请修正或移除它</translation>
    </message>
</context>
<context>
    <name>scenewright::ChangeMarks</name>
    <message>
        <source>Mark What Is Not Sent</source>
        <translation>标记未发送的内容</translation>
    </message>
</context>
<context>
    <name>scenewright::Check</name>
    <message>
        <source>all send {0} on channel {1}</source>
        <translation>都在通道 {1} 上发送 {0}</translation>
    </message>
    <message>
        <source>may all send {0} on channel {1}</source>
        <translation>可能都在通道 {1} 上发送 {0}</translation>
    </message>
    <message>
        <source>both ends of travel send the value {}</source>
        <translation>行程两端都发送值 {}</translation>
    </message>
    <message>
        <source>on and off send the same value {}</source>
        <translation>开和关发送相同的值 {}</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>不发送任何内容：已关闭</translation>
    </message>
    <message>
        <source>may send nothing: it depends on a value that its list does not have</source>
        <translation>可能不发送任何内容：取决于列表中没有的值</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>可能不发送任何内容：移调使其音符超出范围</translation>
    </message>
    <message>
        <source>the constant velocity is 0, which ends notes instead of beginning them</source>
        <translation>固定力度为 0，这会结束音符而不是开始音符</translation>
    </message>
    <message>
        <source>nothing of the name can be seen</source>
        <translation>名称不可见</translation>
    </message>
</context>
<context>
    <name>scenewright::ConnectionKeeper</name>
    <message>
        <source>Programs that are connected to the keyboard&apos;s MIDI port hear nothing for a second; then they are connected again.</source>
        <translation>连接到键盘 MIDI 端口的程序会有一秒钟收不到消息，随后会重新连接。</translation>
    </message>
</context>
<context>
    <name>scenewright::Control</name>
    <message>
        <source>Common</source>
        <translation>通用</translation>
    </message>
    <message>
        <source>Group</source>
        <translation>组</translation>
    </message>
    <message>
        <source>Knob</source>
        <translation>旋钮</translation>
    </message>
    <message>
        <source>Slider</source>
        <translation>推子</translation>
    </message>
    <message>
        <source>Pad</source>
        <translation>打击垫</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>琴键</translation>
    </message>
    <message>
        <source>Control {}</source>
        <translation>控件 {}</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>未知</translation>
    </message>
    <message>
        <source>{}</source>
        <translation>{}</translation>
    </message>
    <message>
        <source>global channel {}</source>
        <translation>全局通道 {}</translation>
    </message>
    <message>
        <source>keyboard channel {}</source>
        <translation>琴键通道 {}</translation>
    </message>
    <message>
        <source>pitch-bend speed {}</source>
        <translation>弯音速度 {}</translation>
    </message>
    <message>
        <source>transposition {}</source>
        <translation>移调 {}</translation>
    </message>
    <message>
        <source>key velocity curve {}</source>
        <translation>琴键力度曲线 {}</translation>
    </message>
    <message>
        <source>pad velocity curve {}</source>
        <translation>打击垫力度曲线 {}</translation>
    </message>
    <message>
        <source>channel {}</source>
        <translation>通道 {}</translation>
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
        <translation>下限 {}</translation>
    </message>
    <message>
        <source>upper {}</source>
        <translation>上限 {}</translation>
    </message>
    <message>
        <source>Note {}</source>
        <translation>音符 {}</translation>
    </message>
    <message>
        <source>behaviour {}</source>
        <translation>行为 {}</translation>
    </message>
    <message>
        <source>on {}</source>
        <translation>开 {}</translation>
    </message>
    <message>
        <source>off {}</source>
        <translation>关 {}</translation>
    </message>
    <message>
        <source>red {}</source>
        <translation>红 {}</translation>
    </message>
    <message>
        <source>green {}</source>
        <translation>绿 {}</translation>
    </message>
    <message>
        <source>blue {}</source>
        <translation>蓝 {}</translation>
    </message>
    <message>
        <source>Sends {0} on channel {1}</source>
        <translation>在通道 {1} 上发送 {0}</translation>
    </message>
    <message>
        <source>Sends nothing</source>
        <translation>不发送任何内容</translation>
    </message>
    <message>
        <source>{} Groups</source>
        <translation>{} 个组</translation>
    </message>
    <message>
        <source>{} Knobs</source>
        <translation>{} 个旋钮</translation>
    </message>
    <message>
        <source>{} Sliders</source>
        <translation>{} 个推子</translation>
    </message>
    <message>
        <source>{} Pads</source>
        <translation>{} 个打击垫</translation>
    </message>
    <message>
        <source>{} Keys</source>
        <translation>{} 个琴键</translation>
    </message>
    <message>
        <source>{} and 1 more group</source>
        <translation>{} 及另外 1 个组</translation>
    </message>
    <message>
        <source>{0} and {1} more groups</source>
        <translation>{0} 及另外 {1} 个组</translation>
    </message>
    <message>
        <source>{} and 1 more knob</source>
        <translation>{} 及另外 1 个旋钮</translation>
    </message>
    <message>
        <source>{0} and {1} more knobs</source>
        <translation>{0} 及另外 {1} 个旋钮</translation>
    </message>
    <message>
        <source>{} and 1 more slider</source>
        <translation>{} 及另外 1 个推子</translation>
    </message>
    <message>
        <source>{0} and {1} more sliders</source>
        <translation>{0} 及另外 {1} 个推子</translation>
    </message>
    <message>
        <source>{} and 1 more pad</source>
        <translation>{} 及另外 1 个打击垫</translation>
    </message>
    <message>
        <source>{0} and {1} more pads</source>
        <translation>{0} 及另外 {1} 个打击垫</translation>
    </message>
    <message>
        <source>{} and 1 more key</source>
        <translation>{} 及另外 1 个琴键</translation>
    </message>
    <message>
        <source>{0} and {1} more keys</source>
        <translation>{0} 及另外 {1} 个琴键</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlButton</name>
    <message>
        <source>%1, chosen</source>
        <translation>%1,已选中</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1，未发送</translation>
    </message>
</context>
<context>
    <name>scenewright::ControlCommands</name>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>&amp;Copy Control</source>
        <translation>复制控件(&amp;C)</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>&amp;Paste Control</source>
        <translation>粘贴控件(&amp;P)</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>&amp;Reset Control</source>
        <translation>重置控件(&amp;R)</translation>
    </message>
    <message>
        <source>Ctrl+Backspace</source>
        <translation>Ctrl+Backspace</translation>
    </message>
    <message>
        <source>Paste Into %1</source>
        <translation>粘贴到 %1</translation>
    </message>
    <message>
        <source>Reset %1</source>
        <translation>重置 %1</translation>
    </message>
    <message>
        <source>Copied %1</source>
        <translation>已复制 %1</translation>
    </message>
    <message>
        <source>%1 has its default settings</source>
        <translation>%1 已恢复默认设置</translation>
    </message>
    <message>
        <source>&amp;Copy Scene Settings</source>
        <translation>复制场景设置(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste Scene Settings</source>
        <translation>粘贴场景设置(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Reset Scene Settings</source>
        <translation>重置场景设置(&amp;R)</translation>
    </message>
    <message>
        <source>Select &amp;All of This Kind</source>
        <translation>选择所有同类控件(&amp;A)</translation>
    </message>
    <message>
        <source>Ctrl+A</source>
        <translation>Ctrl+A</translation>
    </message>
    <message>
        <source>&amp;Fill...</source>
        <translation>填充(&amp;F)...</translation>
    </message>
    <message>
        <source>&amp;Transpose...</source>
        <translation>移调(&amp;T)...</translation>
    </message>
    <message>
        <source>%1 have their default settings</source>
        <translation>%1 已恢复默认设置</translation>
    </message>
    <message>
        <source>&amp;Paste Into Controls</source>
        <translation>粘贴到所选控件(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Reset Controls</source>
        <translation>重置所选控件(&amp;R)</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>填充 %1</translation>
    </message>
    <message>
        <source>Transpose %1</source>
        <translation>移调 %1</translation>
    </message>
</context>
<context>
    <name>scenewright::DevicePicture</name>
    <message>
        <source>Band around controls</source>
        <translation>框选控件</translation>
    </message>
</context>
<context>
    <name>scenewright::DeviceVerification</name>
    <message>
        <source>&amp;Compare With Device</source>
        <translation>与设备比较(&amp;C)</translation>
    </message>
    <message>
        <source>Ctrl+D</source>
        <translation>Ctrl+D</translation>
    </message>
    <message>
        <source>Send And &amp;Verify</source>
        <translation>发送并校验(&amp;V)</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Return</source>
        <translation>Ctrl+Shift+Return</translation>
    </message>
    <message>
        <source>Compare Again</source>
        <translation>重新比较</translation>
    </message>
    <message>
        <source>Bring Back Earlier Scenes</source>
        <translation>恢复先前的场景</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>重新发送</translation>
    </message>
</context>
<context>
    <name>scenewright::DifferenceDialog</name>
    <message>
        <source>Differences</source>
        <translation>差异</translation>
    </message>
    <message>
        <source>One setting of the controller is not what you see.</source>
        <translation>控制器有一项设置与您看到的不同。</translation>
    </message>
    <message>
        <source>%1 settings of the controller are not what you see.</source>
        <translation>控制器有 %1 项设置与您看到的不同。</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>场景 %1</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>场景 %1,%2</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>场景名称</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>控件</translation>
    </message>
    <message>
        <source>Setting</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>键盘</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>Taking changes the window alone. A send transmits the four scenes whole.</source>
        <translation>采用只更改窗口。发送会传输全部四个场景。</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>&amp;Take the Keyboard&apos;s</source>
        <translation>采用键盘的值(&amp;T)</translation>
    </message>
    <message>
        <source>Puts what the keyboard holds into the window: of the selected rows, or of all when none is selected</source>
        <translation>将键盘中的内容放入窗口：所选的行；未选择时为全部</translation>
    </message>
    <message>
        <source>&amp;Send These</source>
        <translation>发送这些(&amp;S)</translation>
    </message>
    <message>
        <source>Sends the four scenes of the window, whole</source>
        <translation>发送窗口中的全部四个场景</translation>
    </message>
    <message>
        <source>Cop&amp;y as Text</source>
        <translation>复制为文本(&amp;Y)</translation>
    </message>
    <message>
        <source>Copies the selected rows, or all</source>
        <translation>复制所选的行，或全部</translation>
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
        <translation>读取之前</translation>
    </message>
    <message>
        <source>on the keyboard before a send</source>
        <translation>发送前键盘上的内容</translation>
    </message>
    <message>
        <source>on the keyboard before the send of {}</source>
        <translation>发送 {} 前键盘上的内容</translation>
    </message>
    <message>
        <source>before a file was opened</source>
        <translation>打开文件之前</translation>
    </message>
    <message>
        <source>before opening {}</source>
        <translation>打开 {} 之前</translation>
    </message>
    <message>
        <source>before earlier scenes were brought back</source>
        <translation>恢复先前场景之前</translation>
    </message>
</context>
<context>
    <name>scenewright::EarlierCommands</name>
    <message>
        <source>&amp;Earlier Scenes</source>
        <translation>先前的场景(&amp;E)</translation>
    </message>
    <message>
        <source>Earlier scenes</source>
        <translation>先前的场景</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>已恢复先前的场景</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>d MMMM yyyy, hh:mm:ss</source>
        <translation>yyyy年M月d日 hh:mm:ss</translation>
    </message>
    <message>
        <source>Brought back the scenes of %1</source>
        <translation>已恢复 %1 的场景</translation>
    </message>
    <message>
        <source>Bring Back Scenes</source>
        <translation>恢复场景</translation>
    </message>
    <message>
        <source>Older</source>
        <translation>更早</translation>
    </message>
    <message>
        <source>Brought back the edited scenes</source>
        <translation>已恢复编辑过的场景</translation>
    </message>
</context>
<context>
    <name>scenewright::File</name>
    <message>
        <source>Cannot read {0}: {1}.</source>
        <translation>无法读取 {0}：{1}。</translation>
    </message>
    <message>
        <source>Cannot write {0}: {1}.</source>
        <translation>无法写入 {0}：{1}。</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>这是文件夹</translation>
    </message>
    <message>
        <source>a file without a name</source>
        <translation>没有名称的文件</translation>
    </message>
    <message>
        <source>it is neither a file nor a pipe</source>
        <translation>既不是文件也不是管道</translation>
    </message>
    <message>
        <source>it is longer than {} bytes</source>
        <translation>文件超过 {} 字节</translation>
    </message>
    <message>
        <source>{} is not a folder</source>
        <translation>{} 不是文件夹</translation>
    </message>
    <message>
        <source>it is no ordinary file</source>
        <translation>这不是普通文件</translation>
    </message>
    <message>
        <source>no name was given</source>
        <translation>没有给出名称</translation>
    </message>
    <message>
        <source>its owner and group could not be kept</source>
        <translation>无法保留其所有者和组</translation>
    </message>
    <message>
        <source>its access list and attributes could not be kept</source>
        <translation>无法保留其访问列表和属性</translation>
    </message>
    <message>
        <source>Cannot write {}: the program itself uses this file; choose another name.</source>
        <translation>无法写入 {}：程序自身正在使用此文件，请选择其他名称。</translation>
    </message>
    <message>
        <source>a file system is mounted on it</source>
        <translation>其上挂载了文件系统</translation>
    </message>
    <message>
        <source>another program keeps it locked</source>
        <translation>另一个程序将其锁定</translation>
    </message>
    <message>
        <source>a file&apos;s name does not end in a slash</source>
        <translation>文件名不能以斜杠结尾</translation>
    </message>
    <message>
        <source>The former scenes could not be kept: {}</source>
        <translation>无法保留先前的场景：{}</translation>
    </message>
    <message>
        <source>{0}: the list &quot;{1}&quot; holds {2} titles, and {3} are needed</source>
        <translation>{0}：列表“{1}”有 {2} 个标题，需要 {3} 个</translation>
    </message>
    <message>
        <source>{0}: the default scene holds {1} controls, and the keyboard has {2}</source>
        <translation>{0}：默认场景有 {1} 个控件，而键盘有 {2} 个</translation>
    </message>
    <message>
        <source>{}: it lists no keyboard</source>
        <translation>{}：其中没有列出键盘</translation>
    </message>
    <message>
        <source>The edited scenes could not be kept: {}</source>
        <translation>无法保留编辑过的场景：{}</translation>
    </message>
    <message>
        <source>{}: it is not a list that a program can add to</source>
        <translation>{}：它不是程序可以添加的列表</translation>
    </message>
    <message>
        <source>There is no home folder for a list of keyboards of your own</source>
        <translation>没有可存放您自己的键盘列表的主文件夹</translation>
    </message>
    <message>
        <source>{}: the keyboard stands there now, but another list is used</source>
        <translation>{}：键盘已写入，但使用的是另一个列表</translation>
    </message>
    <message>
        <source>{0}: a sheet is written to a file that ends in one of {1}</source>
        <translation>{0}：谱单写入以下列之一结尾的文件：{1}</translation>
    </message>
    <message>
        <source>{}: the sheet cannot be drawn</source>
        <translation>{}：无法绘制谱单</translation>
    </message>
    <message>
        <source>nobody writes to this pipe</source>
        <translation>没有人向此管道写入</translation>
    </message>
</context>
<context>
    <name>scenewright::FillDialog</name>
    <message>
        <source>Notes</source>
        <translation>音符</translation>
    </message>
    <message>
        <source>Controllers</source>
        <translation>控制器</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>MIDI 通道</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Their notes, moved</source>
        <translation>移动后的音符</translation>
    </message>
    <message>
        <source>F&amp;ill</source>
        <translation>填充(&amp;I)</translation>
    </message>
    <message>
        <source>Fill %1</source>
        <translation>填充 %1</translation>
    </message>
    <message>
        <source>Fill &amp;with</source>
        <translation>填充内容(&amp;W)</translation>
    </message>
    <message>
        <source>Fill with</source>
        <translation>填充内容</translation>
    </message>
    <message>
        <source>First &amp;note</source>
        <translation>第一个音符(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Scale or steps</source>
        <translation>音阶或步长(&amp;S)</translation>
    </message>
    <message>
        <source>A scale, or semitones from each note to the next: 2,2,1</source>
        <translation>音阶，或相邻音符之间的半音数：2,2,1</translation>
    </message>
    <message>
        <source>First &amp;controller</source>
        <translation>第一个控制器(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Steps</source>
        <translation>步长(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Channel</source>
        <translation>通道(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>颜色(&amp;C)</translation>
    </message>
    <message>
        <source>From one to another</source>
        <translation>从一种到另一种</translation>
    </message>
    <message>
        <source>Palette %1, in turn</source>
        <translation>调色板 %1，依次</translation>
    </message>
    <message>
        <source>&amp;From</source>
        <translation>从(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;To</source>
        <translation>到(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Semitones</source>
        <translation>半音(&amp;S)</translation>
    </message>
    <message>
        <source>Colour of Pads</source>
        <translation>打击垫颜色</translation>
    </message>
    <message>
        <source>Cance&amp;l</source>
        <translation>取消(&amp;L)</translation>
    </message>
    <message>
        <source>Steps are whole numbers with commas between, as in 2,2,1</source>
        <translation>步长是以逗号分隔的整数，例如 2,2,1</translation>
    </message>
    <message>
        <source>The picture shows what comes of it.</source>
        <translation>图示显示结果。</translation>
    </message>
    <message>
        <source>The first note is typed as in C2 or Db2, or as a number from 0 to 127.</source>
        <translation>第一个音符像 C2 或 Db2 那样输入，或输入 0 到 127 的数字。</translation>
    </message>
    <message>
        <source>The first controller is typed as a number from 0 to 127, or by its name, as in sustain.</source>
        <translation>第一个控制器输入 0 到 127 的数字，或输入其名称，如 sustain。</translation>
    </message>
    <message>
        <source>%1 would be below %2, the lowest there is.</source>
        <translation>%1 会低于最低的 %2。</translation>
    </message>
    <message>
        <source>%1 would be above %2, the highest there is.</source>
        <translation>%1 会高于最高的 %2。</translation>
    </message>
    <message>
        <source>None of them sends a note.</source>
        <translation>它们都不发送音符。</translation>
    </message>
</context>
<context>
    <name>scenewright::GainWindow</name>
    <message>
        <source>Gain Panel</source>
        <translation>增益面板</translation>
    </message>
    <message>
        <source>Gain %1</source>
        <translation>增益 %1</translation>
    </message>
    <message>
        <source>Value of gain %1</source>
        <translation>增益 %1 的值</translation>
    </message>
    <message>
        <source>De&amp;fault</source>
        <translation>默认(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Apply</source>
        <translation>应用(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>确定(&amp;O)</translation>
    </message>
    <message>
        <source>Kept while the window is open; not sent</source>
        <translation>仅在窗口打开时保留；不会发送</translation>
    </message>
</context>
<context>
    <name>scenewright::GuidePages</name>
    <message>
        <source>Guide</source>
        <translation>指南</translation>
    </message>
    <message>
        <source>The guide is not among the program&apos;s resources.</source>
        <translation>程序资源中没有指南。</translation>
    </message>
</context>
<context>
    <name>scenewright::GuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>指南</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>后退(&amp;B)</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>后退</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>前进(&amp;F)</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>目录(&amp;C)</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>目录</translation>
    </message>
    <message>
        <source>&amp;Open in Browser</source>
        <translation>在浏览器中打开(&amp;O)</translation>
    </message>
    <message>
        <source>Open in Browser</source>
        <translation>在浏览器中打开</translation>
    </message>
    <message>
        <source>Search (%1)</source>
        <translation>搜索 (%1)</translation>
    </message>
    <message>
        <source>Search this page</source>
        <translation>在本页中搜索</translation>
    </message>
    <message>
        <source>Not on this page</source>
        <translation>本页中没有</translation>
    </message>
</context>
<context>
    <name>scenewright::Help</name>
    <message>
        <source>How the strength of a stroke becomes a velocity: Soft gives more for a light stroke, Hard asks for a strong one, and with Constant every stroke gives the constant velocity.</source>
        <translation>敲击力度如何变成力度值：柔和使轻敲得到更大的值，硬需要重敲，固定则每次敲击都使用固定力度。</translation>
    </message>
    <message>
        <source>The velocity of every stroke while the velocity curve is Constant.</source>
        <translation>力度曲线为固定时每次敲击的力度。</translation>
    </message>
    <message>
        <source>Momentary: on while it is held. Toggle: on at a press, off at the next one. Trigger: at the press alone. Release: when it is let go.</source>
        <translation>瞬时：按住时开启。切换：按一次开启，再按一次关闭。触发：仅在按下时。释放：松开时。</translation>
    </message>
    <message>
        <source>The number of the controller that it sends, such as 7 for the volume.</source>
        <translation>它发送的控制器编号，例如 7 为音量。</translation>
    </message>
    <message>
        <source>The channel of everything in this scene whose own channel is Global.</source>
        <translation>此场景中通道设为全局的一切所用的通道。</translation>
    </message>
    <message>
        <source>The channel that the keys send on. Global stands for the global MIDI channel.</source>
        <translation>琴键发送所用的通道。全局代表全局 MIDI 通道。</translation>
    </message>
    <message>
        <source>How fast pitch bend follows, as a number from 0 to 127.</source>
        <translation>弯音跟随的快慢，为 0 到 127 的数。</translation>
    </message>
    <message>
        <source>Moves the notes of the keys up or down by whole octaves.</source>
        <translation>将琴键的音符按整八度上移或下移。</translation>
    </message>
    <message>
        <source>What it sends: nothing (Off), a controller (CC) or a note (Note).</source>
        <translation>它发送的内容：无（关闭）、控制器（CC）或音符（音符）。</translation>
    </message>
    <message>
        <source>The controller or the note that it sends. A note may be typed by its name or its number: Db2, C#2 or 37.</source>
        <translation>它发送的控制器或音符。音符可按名称或编号输入：Db2、C#2 或 37。</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched on.</source>
        <translation>开启时控制器的值。</translation>
    </message>
    <message>
        <source>The controller&apos;s value when it is switched off.</source>
        <translation>关闭时控制器的值。</translation>
    </message>
    <message>
        <source>The channel of the knob and the slider of this number. Global stands for the global MIDI channel.</source>
        <translation>此编号的旋钮和推子的通道。全局代表全局 MIDI 通道。</translation>
    </message>
    <message>
        <source>The channel that it sends on. Global stands for the global MIDI channel.</source>
        <translation>发送所用的通道。全局代表全局 MIDI 通道。</translation>
    </message>
    <message>
        <source>Off: it sends nothing when it is moved.</source>
        <translation>关闭：移动时不发送任何内容。</translation>
    </message>
    <message>
        <source>The value at the right end. With a smaller one here than on the left, the knob works backwards.</source>
        <translation>右端的值。若比左侧的小，旋钮就反向工作。</translation>
    </message>
    <message>
        <source>The value at the upper end. With a smaller one here than below, the slider works backwards.</source>
        <translation>上端的值。若比下端的小，推子就反向工作。</translation>
    </message>
    <message>
        <source>The value at the left end.</source>
        <translation>左端的值。</translation>
    </message>
    <message>
        <source>The value at the lower end.</source>
        <translation>下端的值。</translation>
    </message>
    <message>
        <source>How much red is in the light, from 0 to 127.</source>
        <translation>灯光中红色的量，0 到 127。</translation>
    </message>
    <message>
        <source>How much green is in the light, from 0 to 127.</source>
        <translation>灯光中绿色的量，0 到 127。</translation>
    </message>
    <message>
        <source>How much blue is in the light, from 0 to 127.</source>
        <translation>灯光中蓝色的量，0 到 127。</translation>
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
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>撤销(&amp;U)：%1</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Re&amp;do</source>
        <translation>重做(&amp;D)</translation>
    </message>
    <message>
        <source>Re&amp;do %1</source>
        <translation>重做(&amp;D)：%1</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>读取</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardCommands</name>
    <message>
        <source>&amp;Keyboards...</source>
        <translation>键盘(&amp;K)...</translation>
    </message>
    <message>
        <source>Which keyboard to use</source>
        <translation>使用哪个键盘</translation>
    </message>
    <message>
        <source>Choose a Keyboard</source>
        <translation>选择键盘</translation>
    </message>
    <message>
        <source>Copied. Paste it into a terminal, then plug the keyboard in again.</source>
        <translation>已复制。请粘贴到终端中执行，然后重新插入键盘。</translation>
    </message>
    <message>
        <source>Waiting for an administrator&apos;s password...</source>
        <translation>正在等待管理员密码...</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardInput</name>
    <message>
        <source>The keyboard&apos;s port cannot be listened to: %1</source>
        <translation>无法监听键盘端口：%1</translation>
    </message>
</context>
<context>
    <name>scenewright::KeyboardWatch</name>
    <message>
        <source>Keyboard</source>
        <translation>键盘</translation>
    </message>
    <message>
        <source>Virtual controller</source>
        <translation>虚拟控制器</translation>
    </message>
    <message>
        <source>No keyboard plugged in</source>
        <translation>未连接键盘</translation>
    </message>
    <message>
        <source>Keyboard plugged in, but you have no permission to use it</source>
        <translation>键盘已连接,但您没有使用权限</translation>
    </message>
    <message>
        <source>Keyboard in use by another program</source>
        <translation>键盘正被其他程序使用</translation>
    </message>
    <message>
        <source>Keyboard plugged in</source>
        <translation>键盘已连接</translation>
    </message>
    <message>
        <source>The chosen keyboard is not plugged in</source>
        <translation>所选键盘未接入</translation>
    </message>
</context>
<context>
    <name>scenewright::Keyboards</name>
    <message>
        <source>{0} ({1}, serial number {2})</source>
        <translation>{0}（{1}，序列号 {2}）</translation>
    </message>
    <message>
        <source>{0}: the device is not in the list of keyboards; &apos;scenewright-cli devices --add {1}&apos; adds it</source>
        <translation>{0}：该设备不在键盘列表中；“scenewright-cli devices --add {1}”可将其加入</translation>
    </message>
    <message>
        <source>There are several with the serial number {0}; name one by its port: {1}</source>
        <translation>有多个设备的序列号为 {0}；请用端口指定一个：{1}</translation>
    </message>
    <message>
        <source>There is no keyboard {}, and no other one of the list</source>
        <translation>没有键盘 {}，也没有列表中的其他键盘</translation>
    </message>
    <message>
        <source>There is no keyboard {0}; plugged in: {1}</source>
        <translation>没有键盘 {0}；已接入：{1}</translation>
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
        <translation>不在列表中</translation>
    </message>
    <message>
        <source>not allowed</source>
        <translation>未获许可</translation>
    </message>
    <message>
        <source>busy</source>
        <translation>被占用</translation>
    </message>
    <message>
        <source>ready</source>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Only keyboards of the list are worked with. What you add stands in a list of your own, beside the one that came with the program. Add it only if it has the controls of the picture.</source>
        <translation>只使用列表中的键盘。您添加的设备写入您自己的列表，与程序自带的列表并存。只有当它具有图中的控件时才添加。</translation>
    </message>
    <message>
        <source>This keyboard is read from and sent to.</source>
        <translation>从此键盘读取，并向此键盘发送。</translation>
    </message>
    <message>
        <source>Keyboards</source>
        <translation>键盘</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>设备</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>端口</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>序列号</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Actions</source>
        <translation>操作</translation>
    </message>
    <message>
        <source>&amp;Use This One</source>
        <translation>使用此设备(&amp;U)</translation>
    </message>
    <message>
        <source>Reads from and sends to this keyboard from now on</source>
        <translation>从现在起从此键盘读取并向其发送</translation>
    </message>
    <message>
        <source>&amp;Allow</source>
        <translation>允许(&amp;A)</translation>
    </message>
    <message>
        <source>Installs the rules that let you use the keyboards of the list, with an administrator&apos;s password</source>
        <translation>用管理员密码安装规则，使您可以使用列表中的键盘</translation>
    </message>
    <message>
        <source>Cop&amp;y Command</source>
        <translation>复制命令(&amp;Y)</translation>
    </message>
    <message>
        <source>Copies the command that lets you use the keyboards of the list, for a terminal</source>
        <translation>复制在终端中执行、使您可以使用列表中键盘的命令</translation>
    </message>
    <message>
        <source>Add To My &amp;List</source>
        <translation>加入我的列表(&amp;L)</translation>
    </message>
    <message>
        <source>Adds the device to your own list of keyboards</source>
        <translation>将该设备加入您自己的键盘列表</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>No USB MIDI device is plugged in.</source>
        <translation>没有接入 USB MIDI 设备。</translation>
    </message>
</context>
<context>
    <name>scenewright::Listening</name>
    <message>
        <source>more came than could be taken at once, and some of it is lost</source>
        <translation>一次到来的内容过多，部分已丢失</translation>
    </message>
    <message>
        <source>no MIDI port of a keyboard of the list is there; waiting for one</source>
        <translation>没有列表中键盘的 MIDI 端口；正在等待</translation>
    </message>
    <message>
        <source>listening to {}</source>
        <translation>正在监听 {}</translation>
    </message>
</context>
<context>
    <name>scenewright::Lists</name>
    <message>
        <source>basic</source>
        <translation>basic_zh_CN</translation>
    </message>
</context>
<context>
    <name>scenewright::MainMenu</name>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&amp;Device</source>
        <translation>设备(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Read Scenes</source>
        <translation>读取场景(&amp;R)</translation>
    </message>
    <message>
        <source>Ctrl+R</source>
        <translation>Ctrl+R</translation>
    </message>
    <message>
        <source>&amp;Send Scenes</source>
        <translation>发送场景(&amp;S)</translation>
    </message>
    <message>
        <source>Ctrl+Return</source>
        <translation>Ctrl+Return</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Gain Panel</source>
        <translation>增益面板(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About Scenewright</source>
        <translation>关于 Scenewright(&amp;A)</translation>
    </message>
    <message>
        <source>More menus</source>
        <translation>更多菜单</translation>
    </message>
    <message>
        <source>Previous Control</source>
        <translation>上一个控件</translation>
    </message>
    <message>
        <source>Ctrl+PgUp</source>
        <translation>Ctrl+PgUp</translation>
    </message>
    <message>
        <source>Next Control</source>
        <translation>下一个控件</translation>
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
        <translation>指南(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;What&apos;s This?</source>
        <translation>这是什么(&amp;W)</translation>
    </message>
</context>
<context>
    <name>scenewright::MainWindow</name>
    <message>
        <source>Scenewright – Virtual controller</source>
        <translation>Scenewright – 虚拟控制器</translation>
    </message>
    <message>
        <source>Scenewright</source>
        <translation>Scenewright</translation>
    </message>
    <message>
        <source>The program ends when the scenes have been sent</source>
        <translation>场景发送完毕后程序将退出</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>外观(&amp;A)</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>As the &amp;System</source>
        <translation>跟随系统(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>浅色(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>深色(&amp;D)</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
    <message>
        <source>Scene %1, %2</source>
        <translation>场景 %1,%2</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>编辑器</translation>
    </message>
    <message>
        <source>Controls</source>
        <translation>控件</translation>
    </message>
    <message>
        <source>Picture of the keyboard</source>
        <translation>键盘图</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Status line</source>
        <translation>状态栏</translation>
    </message>
    <message>
        <source>Scene 1</source>
        <translation>场景 1</translation>
    </message>
    <message>
        <source>Scene 2</source>
        <translation>场景 2</translation>
    </message>
    <message>
        <source>Scene 3</source>
        <translation>场景 3</translation>
    </message>
    <message>
        <source>Scene 4</source>
        <translation>场景 4</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>场景</translation>
    </message>
    <message>
        <source>Sho&amp;w</source>
        <translation>显示(&amp;W)</translation>
    </message>
    <message>
        <source>What the picture shows</source>
        <translation>图中显示的内容</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>读取</translation>
    </message>
    <message>
        <source>Read scenes</source>
        <translation>读取场景</translation>
    </message>
    <message>
        <source>Read the four scenes from the controller (%1)</source>
        <translation>从控制器读取四个场景 (%1)</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>Send scenes</source>
        <translation>发送场景</translation>
    </message>
    <message>
        <source>Send the four scenes to the controller (%1)</source>
        <translation>将四个场景发送到控制器 (%1)</translation>
    </message>
    <message>
        <source>%1 •</source>
        <translation>%1 •</translation>
    </message>
    <message>
        <source>%1, not sent</source>
        <translation>%1，未发送</translation>
    </message>
    <message>
        <source>The settings of the scene as a whole, and the 45 controls. A click or Return shows the settings of one.</source>
        <translation>整个场景的设置和 45 个控件。单击或按回车键显示其设置。</translation>
    </message>
    <message>
        <source>The keyboard&apos;s controls in the chosen scene. A click, or Space, shows the settings of one below.</source>
        <translation>所选场景中键盘的控件。单击或按空格键在下方显示其设置。</translation>
    </message>
    <message>
        <source>The four scenes. One is shown and edited at a time; a read and a send are of all four. A dot is on a scene that is not what the keyboard is known to hold.</source>
        <translation>四个场景。每次显示和编辑一个；读取和发送针对全部四个。圆点表示该场景与已知的键盘内容不同。</translation>
    </message>
    <message>
        <source>Which setting the picture shows on each of its controls.</source>
        <translation>图片在每个控件上显示哪项设置。</translation>
    </message>
</context>
<context>
    <name>scenewright::Message</name>
    <message>
        <source>Note off {0}, ch {1}</source>
        <translation>音符关 {0}，通道 {1}</translation>
    </message>
    <message>
        <source>Note on {0}, ch {1}, velocity {2}</source>
        <translation>音符开 {0}，通道 {1}，力度 {2}</translation>
    </message>
    <message>
        <source>Key pressure {0}, ch {1}, value {2}</source>
        <translation>按键压力 {0}，通道 {1}，值 {2}</translation>
    </message>
    <message>
        <source>CC {0}, ch {1}, value {2}</source>
        <translation>CC {0}，通道 {1}，值 {2}</translation>
    </message>
    <message>
        <source>Program {0}, ch {1}</source>
        <translation>音色 {0}，通道 {1}</translation>
    </message>
    <message>
        <source>Pressure {0}, ch {1}</source>
        <translation>压力 {0}，通道 {1}</translation>
    </message>
    <message>
        <source>Pitch bend {0}, ch {1}</source>
        <translation>弯音 {0}，通道 {1}</translation>
    </message>
    <message>
        <source>System exclusive</source>
        <translation>系统专用</translation>
    </message>
    <message>
        <source>Clock</source>
        <translation>时钟</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Active sensing</source>
        <translation>活动检测</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>复位</translation>
    </message>
</context>
<context>
    <name>scenewright::MonitorLines</name>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>消息</translation>
    </message>
    <message>
        <source>Sent by</source>
        <translation>发送者</translation>
    </message>
</context>
<context>
    <name>scenewright::MonitorStrip</name>
    <message>
        <source>Monitor</source>
        <translation>监视器</translation>
    </message>
    <message>
        <source>&amp;Monitor</source>
        <translation>监视器(&amp;M)</translation>
    </message>
    <message>
        <source>Ctrl+M</source>
        <translation>Ctrl+M</translation>
    </message>
    <message>
        <source>Choose by &amp;Touching</source>
        <translation>触碰选择(&amp;T)</translation>
    </message>
    <message>
        <source>What is listened to</source>
        <translation>正在监听的端口</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>暂停</translation>
    </message>
    <message>
        <source>Clock Too</source>
        <translation>包括时钟</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>What the keyboard sends</source>
        <translation>键盘发送的内容</translation>
    </message>
    <message>
        <source>scene %1?</source>
        <translation>场景 %1？</translation>
    </message>
    <message>
        <source>no control of the scenes</source>
        <translation>场景中没有对应控件</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeBar</name>
    <message>
        <source>Dismiss</source>
        <translation>忽略</translation>
    </message>
    <message>
        <source>Notice</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>Dismiss the notice</source>
        <translation>忽略此通知</translation>
    </message>
    <message>
        <source>Details...</source>
        <translation>详细信息...</translation>
    </message>
    <message>
        <source>Details of the notice</source>
        <translation>通知的详细信息</translation>
    </message>
</context>
<context>
    <name>scenewright::NoticeDetails</name>
    <message>
        <source>Notice</source>
        <translation>通知</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>scenewright::Outcome</name>
    <message>
        <source>default scenes are shown</source>
        <translation>现在显示的是默认场景</translation>
    </message>
    <message>
        <source>{0} of the {1} bytes shown did not come from the keyboard</source>
        <translation>显示的 {1} 个字节中有 {0} 个不是来自键盘</translation>
    </message>
    <message>
        <source>no file was written</source>
        <translation>没有写入文件</translation>
    </message>
    <message>
        <source>there is no backup and nothing was sent</source>
        <translation>没有备份，也没有发送任何内容</translation>
    </message>
    <message>
        <source>nothing was sent</source>
        <translation>没有发送任何内容</translation>
    </message>
    <message>
        <source>the keyboard may hold half a bank, and sending again repairs it</source>
        <translation>键盘中的库可能不完整，重新发送即可修复</translation>
    </message>
    <message>
        <source>what was sent could not be checked</source>
        <translation>无法检查已发送的内容</translation>
    </message>
    <message>
        <source>nothing was compared</source>
        <translation>没有进行比较</translation>
    </message>
    <message>
        <source>it is not known what would change</source>
        <translation>不清楚会有哪些改变</translation>
    </message>
    <message>
        <source>the answer was too short</source>
        <translation>应答太短</translation>
    </message>
    <message>
        <source>the keyboard was unplugged</source>
        <translation>键盘已被拔出</translation>
    </message>
    <message>
        <source>the keyboard refused it</source>
        <translation>键盘拒绝了它</translation>
    </message>
    <message>
        <source>the keyboard did not answer</source>
        <translation>键盘没有应答</translation>
    </message>
    <message>
        <source>the answer was too long</source>
        <translation>应答太长</translation>
    </message>
    <message>
        <source>the system has no memory left</source>
        <translation>系统内存已用完</translation>
    </message>
    <message>
        <source>the USB transfer failed</source>
        <translation>USB 传输失败</translation>
    </message>
    <message>
        <source>at packet {}</source>
        <translation>在数据包 {} 处</translation>
    </message>
    <message>
        <source>at answer {}</source>
        <translation>在应答 {} 处</translation>
    </message>
    <message>
        <source>before the first byte</source>
        <translation>在第一个字节之前</translation>
    </message>
    <message>
        <source>at byte {0} of {1}</source>
        <translation>在第 {0} 字节（共 {1}）处</translation>
    </message>
    <message>
        <source>The program could not go on</source>
        <translation>程序无法继续</translation>
    </message>
    <message>
        <source>{0} of {1} transfers failed, the first {2} ({3})</source>
        <translation>{1} 次传输中有 {0} 次失败，首次失败{2}（{3}）</translation>
    </message>
    <message>
        <source>The keyboard could not be reached</source>
        <translation>无法连接键盘</translation>
    </message>
    <message>
        <source>A send is still running</source>
        <translation>仍在发送</translation>
    </message>
    <message>
        <source>The transfer could not be started</source>
        <translation>无法开始传输</translation>
    </message>
    <message>
        <source>The transfer was cancelled</source>
        <translation>传输已取消</translation>
    </message>
    <message>
        <source>The controller holds what was sent</source>
        <translation>控制器中的内容与发送的相同</translation>
    </message>
    <message>
        <source>The controller holds what you see</source>
        <translation>控制器中的内容与您看到的一致</translation>
    </message>
    <message>
        <source>Settings that differ: {}</source>
        <translation>不同的设置：{}</translation>
    </message>
    <message>
        <source>The controller does not hold what was sent; settings that differ: {}</source>
        <translation>控制器中的内容与发送的不同；不同的设置：{}</translation>
    </message>
    <message>
        <source>{0}: {1}</source>
        <translation>{0}：{1}</translation>
    </message>
    <message>
        <source>The keyboard holds values above 127, which scenes cannot hold; read as 0 instead: {}</source>
        <translation>键盘中有大于 127 的值，场景无法保存这样的值；改读为 0 的个数：{}</translation>
    </message>
    <message>
        <source>The send that was begun at {0} did not end: {1} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>{0} 开始的发送没有完成：4 个场景中已发送 {1} 个，键盘中可能混有两个库的内容</translation>
    </message>
    <message>
        <source>The send of {0} that was begun at {1} did not end: {2} of 4 scenes were sent, and the keyboard may hold a part of each bank</source>
        <translation>{1} 开始的 {0} 发送没有完成：4 个场景中已发送 {2} 个，键盘中可能混有两个库的内容</translation>
    </message>
</context>
<context>
    <name>scenewright::PadColours</name>
    <message>
        <source>Colours</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>%1 Colour</source>
        <translation>%1 颜色</translation>
    </message>
    <message>
        <source>&amp;Other Colour...</source>
        <translation>其他颜色(&amp;O)...</translation>
    </message>
    <message>
        <source>Colour of the Pad</source>
        <translation>打击垫颜色</translation>
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
        <translation>音符</translation>
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
        <translation>音符
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
        <translation>关
%s</translation>
    </message>
    <message>
        <source>ON
%s</source>
        <translation>开
%s</translation>
    </message>
</context>
<context>
    <name>scenewright::PlayBar</name>
    <message>
        <source>&amp;Play This Scene Here</source>
        <translation>在此演奏当前场景(&amp;P)</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>演奏</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>演奏</translation>
    </message>
    <message>
        <source>Stop Playing</source>
        <translation>停止演奏</translation>
    </message>
    <message>
        <source>The scene cannot be played: %1</source>
        <translation>无法演奏该场景：%1</translation>
    </message>
    <message>
        <source>Playing scene %1: connect a program to the port %2</source>
        <translation>正在演奏场景 %1：请将程序连接到端口 %2</translation>
    </message>
    <message>
        <source>Playing scene %1 into %3, through the port %2</source>
        <translation>正在通过端口 %2 将场景 %1 演奏到 %3</translation>
    </message>
    <message>
        <source>Playing scene %1 as the virtual controller holds it</source>
        <translation>正在演奏虚拟控制器中的场景 %1</translation>
    </message>
    <message>
        <source>Rows from A and W: keys, octave %1 (Z, X)   1–8: pads   velocity %2 (C, V)   −, =: knob or slider</source>
        <translation>A 行和 W 行：琴键，八度 %1（Z、X）   1–8：打击垫   力度 %2（C、V）   -、=：旋钮或推子</translation>
    </message>
</context>
<context>
    <name>scenewright::RenameDialog</name>
    <message>
        <source>&amp;Rename</source>
        <translation>重命名(&amp;R)</translation>
    </message>
    <message>
        <source>Rename Scene</source>
        <translation>重命名场景</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>名称(&amp;N)</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
    <message>
        <source>%1 of %2 bytes</source>
        <translation>%1 / %2 字节</translation>
    </message>
</context>
<context>
    <name>scenewright::SafeSending</name>
    <message>
        <source>Read the Keyboard &amp;Before a Send</source>
        <translation>发送前读取键盘(&amp;B)</translation>
    </message>
    <message>
        <source>Send Scenes</source>
        <translation>发送场景</translation>
    </message>
    <message>
        <source>These are not your keyboard&apos;s scenes</source>
        <translation>这些不是您键盘中的场景</translation>
    </message>
    <message>
        <source>The window shows the scenes that it starts with, and the keyboard may hold others. A send replaces all four of them.</source>
        <translation>窗口显示的是启动时的场景，键盘中可能是其他场景。发送会替换全部四个。</translation>
    </message>
    <message>
        <source>&amp;Read First</source>
        <translation>先读取(&amp;R)</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be read</source>
        <translation>无法读取键盘中的内容</translation>
    </message>
    <message>
        <source>What the keyboard holds could not be kept</source>
        <translation>无法保存键盘中的内容</translation>
    </message>
    <message>
        <source>&amp;Send Anyway</source>
        <translation>仍然发送(&amp;S)</translation>
    </message>
    <message>
        <source>The keyboard held other scenes; they are kept</source>
        <translation>键盘中原有其他场景，已保存</translation>
    </message>
    <message>
        <source>Put Them Back</source>
        <translation>放回去</translation>
    </message>
    <message>
        <source>Send Again</source>
        <translation>重新发送</translation>
    </message>
    <message>
        <source>Bring Back What Was There</source>
        <translation>恢复原有内容</translation>
    </message>
    <message>
        <source>Brought back the earlier scenes</source>
        <translation>已恢复先前的场景</translation>
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
        <translation>音符</translation>
    </message>
    <message>
        <source>Scene {}</source>
        <translation>场景 {}</translation>
    </message>
    <message>
        <source>Scenes</source>
        <translation>场景</translation>
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
        <translation>这些场景中可能并非本意的设置</translation>
    </message>
    <message>
        <source>Scene %1</source>
        <translation>场景 %1</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>To Check</source>
        <translation>待检查</translation>
    </message>
    <message>
        <source>%1 to check</source>
        <translation>%1 项待检查</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneCommands</name>
    <message>
        <source>&amp;Scene</source>
        <translation>场景(&amp;S)</translation>
    </message>
    <message>
        <source>Scene</source>
        <translation>场景</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>重命名(&amp;R)...</translation>
    </message>
    <message>
        <source>&amp;Copy To</source>
        <translation>复制到(&amp;C)</translation>
    </message>
    <message>
        <source>S&amp;wap With</source>
        <translation>交换(&amp;W)</translation>
    </message>
    <message>
        <source>R&amp;eset Scene</source>
        <translation>重置场景(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;%1  %2</source>
        <translation>&amp;%1  %2</translation>
    </message>
    <message>
        <source>Rename Scene %1</source>
        <translation>重命名场景 %1</translation>
    </message>
    <message>
        <source>Copy Scene %1 to %2</source>
        <translation>将场景 %1 复制到 %2</translation>
    </message>
    <message>
        <source>Swap Scenes %1 and %2</source>
        <translation>交换场景 %1 和 %2</translation>
    </message>
    <message>
        <source>Reset Scene %1</source>
        <translation>重置场景 %1</translation>
    </message>
    <message>
        <source>&amp;Duplicate From File...</source>
        <translation>从文件复制(&amp;D)...</translation>
    </message>
</context>
<context>
    <name>scenewright::SceneSheet</name>
    <message>
        <source>%1, channel %2</source>
        <translation>%1，通道 %2</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Sends</source>
        <translation>发送</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>场景 %1：%2</translation>
    </message>
    <message>
        <source>%1: the printer takes no sheet</source>
        <translation>%1：打印机不接受谱单</translation>
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
        <translation>%1 编辑的场景既未发送也未保存</translation>
    </message>
    <message>
        <source>The scenes of %1, edited on %2, were neither sent nor saved</source>
        <translation>%1 的场景（%2 编辑）既未发送也未保存</translation>
    </message>
    <message>
        <source>Bring Back</source>
        <translation>恢复</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>丢弃</translation>
    </message>
</context>
<context>
    <name>scenewright::Sequencer</name>
    <message>
        <source>there is no sequencer of ALSA&apos;s on this system ({}); as root, modprobe snd-seq loads it</source>
        <translation>此系统上没有 ALSA 音序器（{}）；以 root 身份运行 modprobe snd-seq 可加载它</translation>
    </message>
    <message>
        <source>you have no permission to use {}; sit at the machine, or be a member of the group audio</source>
        <translation>您没有使用 {} 的权限；请在本机登录，或加入 audio 组</translation>
    </message>
    <message>
        <source>cannot use ALSA&apos;s sequencer ({}): {}</source>
        <translation>无法使用 ALSA 音序器（{}）：{}</translation>
    </message>
    <message>
        <source>another program has the MIDI port {}:{} for itself; end that program first</source>
        <translation>另一个程序独占了 MIDI 端口 {}:{}；请先结束该程序</translation>
    </message>
    <message>
        <source>cannot connect {}:{} to {}:{}: {}</source>
        <translation>无法将 {}:{} 连接到 {}:{}：{}</translation>
    </message>
    <message>
        <source>what is played does not reach a program that is connected: {}</source>
        <translation>演奏的内容无法到达已连接的程序：{}</translation>
    </message>
</context>
<context>
    <name>scenewright::Setting</name>
    <message>
        <source>Global MIDI channel</source>
        <translation>全局 MIDI 通道</translation>
    </message>
    <message>
        <source>Keyboard MIDI channel</source>
        <translation>琴键 MIDI 通道</translation>
    </message>
    <message>
        <source>Pitch-bend speed</source>
        <translation>弯音速度</translation>
    </message>
    <message>
        <source>Octave transposition</source>
        <translation>八度移调</translation>
    </message>
    <message>
        <source>Key velocity curve</source>
        <translation>琴键力度曲线</translation>
    </message>
    <message>
        <source>Key constant velocity</source>
        <translation>琴键固定力度</translation>
    </message>
    <message>
        <source>Pad velocity curve</source>
        <translation>打击垫力度曲线</translation>
    </message>
    <message>
        <source>Pad constant velocity</source>
        <translation>打击垫固定力度</translation>
    </message>
    <message>
        <source>MIDI channel</source>
        <translation>MIDI 通道</translation>
    </message>
    <message>
        <source>Enabled</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>CC number</source>
        <translation>CC 编号</translation>
    </message>
    <message>
        <source>Right value</source>
        <translation>右侧值</translation>
    </message>
    <message>
        <source>Left value</source>
        <translation>左侧值</translation>
    </message>
    <message>
        <source>Upper value</source>
        <translation>上限值</translation>
    </message>
    <message>
        <source>Lower value</source>
        <translation>下限值</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>CC or note number</source>
        <translation>CC 或音符编号</translation>
    </message>
    <message>
        <source>On value</source>
        <translation>开启值</translation>
    </message>
    <message>
        <source>Off value</source>
        <translation>关闭值</translation>
    </message>
    <message>
        <source>Behaviour</source>
        <translation>行为</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>红</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>绿</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>蓝</translation>
    </message>
</context>
<context>
    <name>scenewright::StatusLine</name>
    <message>
        <source>Status</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>就绪</translation>
    </message>
    <message>
        <source>Transfer in progress</source>
        <translation>正在传输</translation>
    </message>
</context>
<context>
    <name>scenewright::StripPlace</name>
    <message>
        <source>Below the picture</source>
        <translation>键盘图下方</translation>
    </message>
</context>
<context>
    <name>scenewright::Try</name>
    <message>
        <source>note {}</source>
        <translation>音符 {}</translation>
    </message>
    <message>
        <source>{0}, ch {1}</source>
        <translation>{0}，通道 {1}</translation>
    </message>
    <message>
        <source>sent {0}, expected {1}</source>
        <translation>发送了 {0}，应为 {1}</translation>
    </message>
    <message>
        <source>sends nothing: it is off</source>
        <translation>不发送任何内容：已关闭</translation>
    </message>
    <message>
        <source>may send nothing: the transposition moves its note out of range</source>
        <translation>可能不发送任何内容：移调使其音符超出范围</translation>
    </message>
    <message>
        <source>sends nothing: it has a value that its list has not</source>
        <translation>不发送任何内容：有一个值不在其列表中</translation>
    </message>
    <message>
        <source>{} right</source>
        <translation>{} 个正确</translation>
    </message>
    <message>
        <source>{} not as assumed</source>
        <translation>{} 个与假定不同</translation>
    </message>
    <message>
        <source>{} wrong</source>
        <translation>{} 个错误</translation>
    </message>
    <message>
        <source>{} skipped</source>
        <translation>{} 个已跳过</translation>
    </message>
    <message>
        <source>{} passed over</source>
        <translation>{} 个略过</translation>
    </message>
    <message>
        <source>{} not tried</source>
        <translation>{} 个未尝试</translation>
    </message>
    <message>
        <source>sent {}</source>
        <translation>发送了 {}</translation>
    </message>
    <message>
        <source>sent {}, not quite as is assumed</source>
        <translation>发送了 {}，与假定略有不同</translation>
    </message>
    <message>
        <source>skipped</source>
        <translation>已跳过</translation>
    </message>
</context>
<context>
    <name>scenewright::TryStrip</name>
    <message>
        <source>Try It</source>
        <translation>试用</translation>
    </message>
    <message>
        <source>Try &amp;It</source>
        <translation>试用(&amp;I)</translation>
    </message>
    <message>
        <source>Skip</source>
        <translation>跳过</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>返回</translation>
    </message>
    <message>
        <source>Copy Report</source>
        <translation>复制报告</translation>
    </message>
    <message>
        <source>End</source>
        <translation>结束</translation>
    </message>
    <message>
        <source>What was tried</source>
        <translation>试用结果</translation>
    </message>
    <message>
        <source>Control</source>
        <translation>控件</translation>
    </message>
    <message>
        <source>Expected</source>
        <translation>预期</translation>
    </message>
    <message>
        <source>Result</source>
        <translation>结果</translation>
    </message>
    <message>
        <source>It is not known yet what the keyboard holds. Send or read the scenes first, and then try them</source>
        <translation>尚不清楚键盘中的内容。请先发送或读取场景，然后再试用</translation>
    </message>
    <message>
        <source>Choose scene %1 on the keyboard.</source>
        <translation>请在键盘上选择场景 %1。</translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1：%2。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>%1 Scene %2: %3</source>
        <translation>%1 场景 %2：%3</translation>
    </message>
    <message>
        <source>Touch %1. %2</source>
        <translation>请触碰%1。%2</translation>
    </message>
    <message>
        <source>Scene %1: %2</source>
        <translation>场景 %1：%2</translation>
    </message>
</context>
<context>
    <name>scenewright::UnsentButton</name>
    <message>
        <source>1 change not sent</source>
        <translation>1 项更改未发送</translation>
    </message>
    <message>
        <source>%1 changes not sent</source>
        <translation>%1 项更改未发送</translation>
    </message>
    <message>
        <source>Show in what the window and the keyboard differ</source>
        <translation>显示窗口与键盘的不同之处</translation>
    </message>
</context>
<context>
    <name>scenewright::ValuePanes</name>
    <message>
        <source>Red %1, green %2, blue %3 of 255</source>
        <translation>红 %1,绿 %2,蓝 %3(最大 255)</translation>
    </message>
    <message>
        <source>No control is chosen. Click one on the picture or in the list, or press Return on a row of the list.</source>
        <translation>未选择控件。请在图中或列表中单击一个控件,或在列表的某一行按回车键。</translation>
    </message>
    <message>
        <source>Scene name</source>
        <translation>场景名称</translation>
    </message>
    <message>
        <source>Settings of the chosen control</source>
        <translation>所选控件的设置</translation>
    </message>
    <message>
        <source>Mixed colour</source>
        <translation>混合颜色</translation>
    </message>
    <message>
        <source>fesdvhw</source>
        <extracomment>The letters marked in the menu bar and in &quot;Show&quot;, in any order.</extracomment>
        <translation>fesdvhw</translation>
    </message>
    <message>
        <source>What it sends</source>
        <translation>发送的内容</translation>
    </message>
    <message>
        <source>The name that the keyboard holds of the scene. Scene &gt; Rename changes it.</source>
        <translation>键盘保存的场景名称。用“场景”&gt;“重命名”更改。</translation>
    </message>
    <message>
        <source>The light of the pad, as the three levels mix it. A click opens a palette.</source>
        <translation>三个电平混合出的打击垫灯光。单击打开调色板。</translation>
    </message>
</context>
</TS>
